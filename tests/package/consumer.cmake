# Installs the build to a prefix of its own, builds the consumer against it, and runs the consumer.
file(REMOVE_RECURSE ${SCRATCH})
file(MAKE_DIRECTORY ${SCRATCH})

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE out)
    if(NOT result EQUAL 0)
        string(REPLACE ";" " " command "${ARGN}")
        message(FATAL_ERROR "${command}\nended with ${result}:\n${out}")
    endif()
endfunction()

set(flags "")
if(SANITIZE)
    set(flags "-fsanitize=${SANITIZE}")
endif()
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${SCRATCH}/prefix)
run(${CMAKE_COMMAND} -S ${CONSUMER} -B ${SCRATCH}/build -G ${GENERATOR}
    -DCMAKE_PREFIX_PATH=${SCRATCH}/prefix -DCMAKE_CXX_COMPILER=${COMPILER}
    -DCMAKE_CXX_FLAGS=${flags})
run(${CMAKE_COMMAND} --build ${SCRATCH}/build)
run(${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ${SCRATCH}/build/consumer)
