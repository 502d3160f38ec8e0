# The module is built for a host of somebody else's, which lies in a folder of its own: once named
# as a file and once as a target of a package, both from the sources that are installed. What is installed
# finds it.
include(${CMAKE_CURRENT_LIST_DIR}/support.cmake)
run(${CMAKE_COMMAND} --install ${BUILD} --component development --prefix ${SCRATCH}/root)
set(source ${SCRATCH}/root/share/newProDialog/source)
run_refused(1 "NEWPRO_HOST_LIBRARIES has to name"
    ${CMAKE_COMMAND} -S ${source} -B ${SCRATCH}/none ${toolchain})
foreach(nowhere /nope/libhost.so lib/libhost.so)
    run_refused(1 "names ${nowhere}, which is no whole path of a file"
        ${CMAKE_COMMAND} -S ${source} -B ${SCRATCH}/none ${toolchain} -DNEWPRO_HOST_LIBRARIES=${nowhere})
endforeach()
set(host ${SCRATCH}/host)
file(COPY ${HOST_LIBRARY} DESTINATION ${host}/lib)
cmake_path(GET HOST_LIBRARY FILENAME name)
set(host_library ${host}/lib/${name})

# Two libraries, as many hosts have: the second has nothing that the module calls.
file(WRITE ${SCRATCH}/second.cpp "extern \"C\" int second() { return 2; }\n")
run(${COMPILER} -shared -fPIC -o ${host}/lib/libsecond.so ${SCRATCH}/second.cpp)
two_libraries(${host_library} ${host}/lib/libsecond.so)
build_module(${source} -C ${two_libraries})
run(${CMAKE_COMMAND} --install ${SCRATCH}/module --prefix ${SCRATCH}/file)
file(GLOB programs ${SCRATCH}/module/bin/*)
if(programs OR EXISTS ${SCRATCH}/file/bin OR EXISTS ${SCRATCH}/file/lib/${name})
    message(FATAL_ERROR "the workbench is built or installed")
endif()
# The line of both READMEs that holds these libraries against the contract. No installation is loaded
# here: its folder is the one difference.
readme_lines(check.sh "" "cmake -B build/host")
file(STRINGS ${SCRATCH}/readme/check.sh check REGEX "host-check")
string(REPLACE build/host ${SCRATCH}/module check "${check}")
run_refused(1 " hold, 1 differ, " ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen sh -c "${check}")
# The guide's, with what is built already. Nor does this host know the project file as its own: three
# differences more.
guide_lines("cmake -S " lines)
string(REPLACE "-B check" "-B module" lines "${lines}")
string(REPLACE "--build check" "--build module" lines "${lines}")
string(REPLACE check/bin module/bin lines "${lines}")
string(REPLACE /opt/host/lib/libhost.so ${host_library} lines "${lines}")
run_refused(1 " hold, 4 differ, 8 not reached" ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen
    sh -c "cd ${SCRATCH}\n${lines}")
# The library itself knows where its host is: not every linker lets the program load it first.
file(GLOB module ${SCRATCH}/file/lib*/libnewProDialog.so)
file(GET_RUNTIME_DEPENDENCIES LIBRARIES ${module} RESOLVED_DEPENDENCIES_VAR resolved
    PRE_INCLUDE_REGEXES ${name} PRE_EXCLUDE_REGEXES .)
if(NOT resolved STREQUAL host_library)
    message(FATAL_ERROR "${module} takes its host from: ${resolved}")
endif()
consume(${SCRATCH}/file)

# The package follows the host to another place, once it is told.
file(RENAME ${host} ${SCRATCH}/moved)
run_refused(1 "The host library ${host_library} is not there."
    ${CMAKE_COMMAND} ${SCRATCH}/consumer)
set(host_library ${SCRATCH}/moved/lib/${name})
two_libraries(${host_library} ${SCRATCH}/moved/lib/libsecond.so)
consume(${SCRATCH}/file -C ${two_libraries})

file(COPY ${package_tests}/hostPackage/HostConfigVersion.cmake DESTINATION ${SCRATCH}/moved)
configure_file(${package_tests}/hostPackage/HostConfig.cmake.in ${SCRATCH}/moved/HostConfig.cmake
    @ONLY)
build_module(${source} -DNEWPRO_HOST_LIBRARIES=Host::host "-DNEWPRO_HOST_PACKAGE=Host 1.2"
    -DHost_DIR=${SCRATCH}/moved)
run(${CMAKE_COMMAND} --install ${SCRATCH}/module --prefix ${SCRATCH}/package)
file(REMOVE_RECURSE ${SCRATCH}/consumer)
consume(${SCRATCH}/package -DHost_DIR=${SCRATCH}/moved)

file(REMOVE_RECURSE ${SCRATCH})
