# Holds the host of a PROGRAM against the contract: it has to end with CODE and to print what matches
# TEXT. PATIENCE: what to give as the option of that name.
if(NOT DEFINED PATIENCE)
    set(PATIENCE 10)
endif()
set(repository ${CMAKE_CURRENT_LIST_DIR}/../..)
execute_process(
    COMMAND ${PROGRAM} --patience=${PATIENCE} --project ${CMAKE_CURRENT_LIST_DIR}/project.GCFX
            --workbook ${repository}/workbench/installation/Workbooks/教学楼安装清单.xls
    RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE err)
message("${out}${err}")
if(NOT result STREQUAL CODE OR NOT "${out}${err}" MATCHES "${TEXT}")
    message(FATAL_ERROR "${PROGRAM} ended with ${result}, and has to end with ${CODE} and \"${TEXT}\"")
endif()
