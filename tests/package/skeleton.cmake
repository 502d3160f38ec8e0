# The skeleton of a host, copied away and built by its own lines; then its check.
include(${CMAKE_CURRENT_LIST_DIR}/support.cmake)
file(COPY ${REPOSITORY}/examples/host DESTINATION ${SCRATCH})
build_module(${SCRATCH}/host -DNEWPRO_SOURCE=${REPOSITORY})
run(${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ${SCRATCH}/module/host-check)
if(NOT out MATCHES ", 0 differ, ")
    message(FATAL_ERROR "${out}")
endif()
file(REMOVE_RECURSE ${SCRATCH})
