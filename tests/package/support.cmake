# What the package tests share. They get the variables that CMakeLists.txt lists.
# Each works in a folder outside the sources, SCRATCH, which stays where a test fails.
execute_process(COMMAND mktemp -d --tmpdir newpro-package-XXXXXX OUTPUT_VARIABLE SCRATCH
    OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
file(REAL_PATH ${SCRATCH} SCRATCH)

set(flags "")
if(SANITIZE)
    set(flags "-fsanitize=${SANITIZE}")
endif()
set(toolchain -G ${GENERATOR} -DCMAKE_CXX_COMPILER=${COMPILER} -DCMAKE_CXX_FLAGS=${flags})
set(package_tests ${CMAKE_CURRENT_LIST_DIR})

# run(COMMAND ARG...): runs it and sets `out` to what it wrote; ends the test where it fails.
function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE out)
    if(NOT result EQUAL 0)
        string(REPLACE ";" " " command "${ARGN}")
        message(FATAL_ERROR "${command}\nended with ${result}:\n${out}")
    endif()
    set(out "${out}" PARENT_SCOPE)
endfunction()

# run_refused(CODE TEXT COMMAND ARG...): runs what has to end with a code and say a text, however
# its lines are broken. What is not refused may go on for ever, as a window does.
function(run_refused code text)
    execute_process(COMMAND ${ARGN} TIMEOUT 200
        RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE out)
    string(REGEX REPLACE "[ \n]+" " " words "${out}")
    string(FIND "${words}" "${text}" found)
    if(NOT result EQUAL code OR found EQUAL -1)
        string(REPLACE ";" " " command "${ARGN}")
        message(FATAL_ERROR "${command}\nended with ${result}, without saying ${text}:\n${out}")
    endif()
endfunction()

# readme_block(README LANGUAGE START INTO): a code block of a README, found by how it begins.
function(readme_block readme language start into)
    file(READ ${REPOSITORY}/${readme} text)
    string(FIND "${text}" "```${language}\n${start}" begin)
    if(begin EQUAL -1)
        message(FATAL_ERROR "${readme} has no block that begins with ${start}")
    endif()
    string(SUBSTRING "${text}" ${begin} -1 text)
    string(REGEX REPLACE "^```[a-z]*\n" "" text "${text}")
    string(FIND "${text}" "```" end)
    string(SUBSTRING "${text}" 0 ${end} text)
    set(${into} "${text}" PARENT_SCOPE)
endfunction()

# guide_lines(START INTO): a code block of docs/writing-a-host.md, with the places that are here: what
# is installed, and files of the host's.
function(guide_lines start into)
    readme_block(docs/writing-a-host.md "" "${start}" lines)
    string(REPLACE /usr/ ${SCRATCH}/root/ lines "${lines}")
    string(REPLACE A.GCFX ${REPOSITORY}/tests/conformance/project.GCFX lines "${lines}")
    string(REPLACE B.xlsx ${REPOSITORY}/workbench/installation/Workbooks/教学楼安装清单.xls lines "${lines}")
    set(${into} "${lines}" PARENT_SCOPE)
endfunction()

# The lines of README.md that the tests compile, in the folder that README_LINES names; the Chinese
# one has the same.
function(readme_lines file language start)
    readme_block(README.md "${language}" "${start}" text)
    readme_block(README.zh-CN.md "${language}" "${start}" chinese)
    if(NOT text STREQUAL chinese)
        message(FATAL_ERROR "README.zh-CN.md differs:\n${chinese}\nfrom README.md:\n${text}")
    endif()
    file(WRITE ${SCRATCH}/readme/${file} "${text}")
endfunction()
readme_lines(find.cmake cmake "find_package(newProDialog")
readme_lines(enclose.cmake cmake "find_package(Qt5")
# The lines are for Qt 5; with Qt 6 the first finds that.
file(READ ${SCRATCH}/readme/enclose.cmake enclose)
string(REPLACE "Qt5 5.15" "Qt${QT} ${OLDEST_QT}" enclose "${enclose}")
file(WRITE ${SCRATCH}/readme/enclose.cmake "${enclose}")
readme_lines(readme.h cpp "#include <NewProCfgDialog.h>")
set(readme_lines -DREADME_LINES=${SCRATCH}/readme)

# show_dialog(PROGRAM): runs a consumer, which shows the dialog and ends.
function(show_dialog program)
    run(${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ${program})
endfunction()

# two_libraries(FIRST SECOND): makes a file for `cmake -C` that names them as the host's, and sets
# `two_libraries` to it. As an argument, a list would come apart on its way.
function(two_libraries first second)
    file(WRITE ${SCRATCH}/two.cmake
        "set(NEWPRO_HOST_LIBRARIES ${first} ${second} CACHE STRING \"\" FORCE)\n")
    set(two_libraries ${SCRATCH}/two.cmake PARENT_SCOPE)
endfunction()

# consume(PREFIX ARG...): builds the consumer against an installed package and runs it. Qt's parts
# that the package must not ask for are hidden.
function(consume prefix)
    run(${CMAKE_COMMAND} -S ${package_tests}/consumer -B ${SCRATCH}/consumer ${toolchain}
        ${readme_lines} -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_DISABLE_FIND_PACKAGE_Qt${QT}Svg=ON ${ARGN})
    run(${CMAKE_COMMAND} --build ${SCRATCH}/consumer --parallel 2)
    show_dialog(${SCRATCH}/consumer/app)
endfunction()

# build_module(SOURCE ARG...): builds a project with the module into SCRATCH/module, in a few large
# pieces, as that takes a tenth of the time.
function(build_module source)
    run(${CMAKE_COMMAND} -S ${source} -B ${SCRATCH}/module ${toolchain}
        -DNEWPRO_QT=${QT} -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG=-O0 -DCMAKE_UNITY_BUILD=ON
        -DCMAKE_UNITY_BUILD_BATCH_SIZE=32 ${ARGN})
    run(${CMAKE_COMMAND} --build ${SCRATCH}/module --parallel 2)
endfunction()
