# The skeleton of a host, as a maker of a host has it: from what is installed to build with, copied
# away, and built and held against the contract by the lines of docs/writing-a-host.md.
include(${CMAKE_CURRENT_LIST_DIR}/support.cmake)
run(${CMAKE_COMMAND} --install ${BUILD} --component development --prefix ${SCRATCH}/root)
set(installed ${SCRATCH}/root/share/newProDialog/source)
file(GLOB schemas RELATIVE ${REPOSITORY}/docs/contract ${REPOSITORY}/docs/contract/*.schema.json)
foreach(schema IN LISTS schemas)
    run(${CMAKE_COMMAND} -E compare_files
        ${REPOSITORY}/docs/contract/${schema} ${installed}/docs/contract/${schema})
endforeach()

# The guide leads nowhere that is not installed, but for the tests.
file(READ ${installed}/docs/writing-a-host.md guide)
string(REPLACE "](" "@" guide "${guide}")  # a bracket would keep a list in one piece
string(REGEX MATCHALL "@[^)#]+" links "${guide}")
foreach(link IN LISTS links)
    string(SUBSTRING ${link} 1 -1 link)
    if(NOT link MATCHES "^(https?:|\\.\\./tests/)" AND NOT EXISTS ${installed}/docs/${link})
        message(FATAL_ERROR "docs/writing-a-host.md leads to ${link}, which is not installed")
    endif()
endforeach()

# The lines as they stand, but for the places of the files, and for a window that nobody would close.
guide_lines("cp -r " lines)
string(REPLACE "\nbuild/skeleton\n" "\ntimeout 3 build/skeleton || [ $? -eq 124 ]\n" lines "${lines}")
file(WRITE ${SCRATCH}/lines.sh "set -e\ncd ${SCRATCH}\n${lines}")
# What the other tests say on the command line.
file(WRITE ${SCRATCH}/pieces.cmake "set(CMAKE_UNITY_BUILD ON)\nset(CMAKE_UNITY_BUILD_BATCH_SIZE 32)\n")
run(${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen CMAKE_GENERATOR=${GENERATOR} CXX=${COMPILER}
    CMAKE_TOOLCHAIN_FILE=${SCRATCH}/pieces.cmake "CXXFLAGS=${flags} -O0" CMAKE_BUILD_PARALLEL_LEVEL=2
    sh ${SCRATCH}/lines.sh)
if(NOT out MATCHES ", 0 differ, 4 not reached")
    message(FATAL_ERROR "${out}")
endif()
# With the Qt of the package that the lines came in.
set(skeleton ${SCRATCH}/myhost/build/skeleton)
file(GET_RUNTIME_DEPENDENCIES EXECUTABLES ${skeleton} RESOLVED_DEPENDENCIES_VAR libraries)
if(NOT libraries MATCHES "libQt${QT}Widgets")
    message(FATAL_ERROR "${skeleton} needs no Qt ${QT}: ${libraries}")
endif()
file(REMOVE_RECURSE ${SCRATCH})
