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

file(READ ${REPOSITORY}/docs/writing-a-host.md text)
string(REGEX MATCH "\ncp -r ([^ ]+) myhost && cd myhost\ncmake -S \\. -B build -DNEWPRO_SOURCE=([^ ]+) && "
    lines "${text}")
string(REPLACE /usr ${SCRATCH}/root skeleton "${CMAKE_MATCH_1}")
string(REPLACE /usr ${SCRATCH}/root source "${CMAKE_MATCH_2}")
run(${CMAKE_COMMAND} -E copy_directory ${skeleton} ${SCRATCH}/myhost)
build_module(${SCRATCH}/myhost -DNEWPRO_SOURCE=${source})
run(${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ${SCRATCH}/module/host-check
    --project ${REPOSITORY}/tests/conformance/project.GCFX
    --workbook ${REPOSITORY}/workbench/installation/Workbooks/教学楼安装清单.xls)
if(NOT out MATCHES ", 0 differ, 0 not reached")
    message(FATAL_ERROR "${out}")
endif()
file(REMOVE_RECURSE ${SCRATCH})
