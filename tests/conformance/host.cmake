# Holds the host of a PROGRAM against the contract, with OPTIONS of its own: it has to end with CODE and to
# print what matches all TEXTS. The first of them is the first complaint, where the host is wrong.
execute_process(
    COMMAND ${PROGRAM} --patience 10 --project ${CMAKE_CURRENT_LIST_DIR}/project.GCFX ${OPTIONS}
    RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE err)
message("${out}${err}")
if(NOT result STREQUAL CODE)
    message(FATAL_ERROR "${PROGRAM} ended with ${result}, and has to end with ${CODE}")
endif()
string(REGEX MATCH "DIFFERS.*" complaints "${out}")
list(GET TEXTS 0 first)
if(complaints AND NOT complaints MATCHES "^${first}")
    message(FATAL_ERROR "The first complaint is not \"${first}\"")
endif()
foreach(text IN LISTS TEXTS)
    if(NOT "${out}${err}" MATCHES "${text}")
        message(FATAL_ERROR "${PROGRAM} does not say \"${text}\"")
    endif()
endforeach()
