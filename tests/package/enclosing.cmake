# The module as a part of a project whose own target is the host.
include(${CMAKE_CURRENT_LIST_DIR}/support.cmake)
file(COPY ${package_tests}/enclosing DESTINATION ${SCRATCH})
file(CREATE_LINK ${REPOSITORY} ${SCRATCH}/enclosing/newProDialog SYMBOLIC)

run_refused(1 "NEWPRO_HOST_LIBRARIES has to name"
    ${CMAKE_COMMAND} -S ${SCRATCH}/enclosing/newProDialog -B ${SCRATCH}/none ${toolchain}
    -DNEWPRO_HOST_LIBRARIES=)
run_refused(1 "NEWPRO_QT has to be 5 or 6"
    ${CMAKE_COMMAND} -S ${SCRATCH}/enclosing/newProDialog -B ${SCRATCH}/none ${toolchain}
    -DNEWPRO_QT=7)
# With the install rules, which are not there unless they are asked for: they must not ask for the
# enclosing project's own targets.
build_module(${SCRATCH}/enclosing ${readme_lines} -DCONSUMER=${package_tests}/consumer
    -DHOST_LIBRARY=${HOST_LIBRARY} -DNEWPRO_INSTALL=ON)
show_dialog(${SCRATCH}/module/app)

file(REMOVE_RECURSE ${SCRATCH})
