# The module as a part of a project whose own target is the host.
include(${CMAKE_CURRENT_LIST_DIR}/support.cmake)
file(COPY ${package_tests}/enclosing DESTINATION ${SCRATCH})
file(COPY ${REPOSITORY}/examples/host/services.cpp DESTINATION ${SCRATCH}/enclosing)
file(CREATE_LINK ${REPOSITORY} ${SCRATCH}/enclosing/newProDialog SYMBOLIC)

run_refused(1 "NEWPRO_HOST_LIBRARIES has to name"
    ${CMAKE_COMMAND} -S ${SCRATCH}/enclosing/newProDialog -B ${SCRATCH}/none ${toolchain}
    -DNEWPRO_HOST_LIBRARIES=)
run_refused(1 "NEWPRO_QT has to be 5 or 6"
    ${CMAKE_COMMAND} -S ${SCRATCH}/enclosing/newProDialog -B ${SCRATCH}/none ${toolchain}
    -DNEWPRO_QT=7)
# The lines for a static host, but for the first two, which are there already with another host: the module
# that is compiled for that one serves both.
readme_block(docs/writing-a-host.md cmake "set(NEWPRO_HOST_LIBRARIES myHost)" static)
string(REGEX REPLACE "^set[^\n]*\nadd_subdirectory[^\n]*\n" "" static "${static}")
string(REPLACE "(app " "(app-in-one " static "${static}")
string(REPLACE "(host-check " "(check-in-one " static "${static}")
file(WRITE ${SCRATCH}/readme/static.cmake "${static}")

# The host is made after the module, as in the skeleton.
file(READ ${SCRATCH}/readme/enclose.cmake enclose)
string(REPLACE "add_subdirectory(newProDialog)\n"
    "add_subdirectory(newProDialog)\nadd_library(appHost SHARED host.cpp)\n" enclose "${enclose}")
file(WRITE ${SCRATCH}/readme/enclose.cmake "${enclose}")

# With the install rules, which are not there unless they are asked for: they must not ask for the
# enclosing project's own targets.
build_module(${SCRATCH}/enclosing ${readme_lines} -DCONSUMER=${package_tests}/consumer
    -DHOST_LIBRARY=${HOST_LIBRARY} -DNEWPRO_INSTALL=ON)
show_dialog(${SCRATCH}/module/app)
show_dialog(${SCRATCH}/module/app-in-one)
file(GET_RUNTIME_DEPENDENCIES EXECUTABLES ${SCRATCH}/module/app-in-one ${SCRATCH}/module/check-in-one RESOLVED_DEPENDENCIES_VAR libraries)
if(libraries MATCHES "[Hh]ost|newProDialog")
    message(FATAL_ERROR "the program in one needs: ${libraries}")
endif()
run(${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ${SCRATCH}/module/check-in-one)
if(NOT out MATCHES "nothing can stand before the host's.* 0 differ, ")
    message(FATAL_ERROR "${out}")
endif()

# A target of that project is nothing that a consumer has: it says where the library lies.
run(${CMAKE_COMMAND} --install ${SCRATCH}/module --prefix ${SCRATCH}/installed)
run_refused(1 "The host's target appHost is not there."
    ${CMAKE_COMMAND} -S ${package_tests}/consumer -B ${SCRATCH}/unknown ${toolchain}
    ${readme_lines} -DCMAKE_PREFIX_PATH=${SCRATCH}/installed)
file(GLOB host ${SCRATCH}/module/libappHost.so)
two_libraries(${host} ${HOST_LIBRARY})
consume(${SCRATCH}/installed -C ${two_libraries})

file(REMOVE_RECURSE ${SCRATCH})
