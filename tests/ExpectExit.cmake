# Runs PROGRAM (with the arguments ARG1, ARG2, ... when given) and checks its exit status
# (STATUS) and that its standard error matches STDERR_REGEX; a program that hangs fails after
# 30 seconds instead of holding up the run.
set(command ${PROGRAM})
foreach(number RANGE 1 9)
    if(DEFINED ARG${number})
        list(APPEND command "${ARG${number}}")
    endif()
endforeach()
execute_process(COMMAND ${command} RESULT_VARIABLE status ERROR_VARIABLE errors TIMEOUT 30)
if(NOT status STREQUAL "${STATUS}")
    message(FATAL_ERROR "exit status ${status}, expected ${STATUS}; standard error:\n${errors}")
endif()
if(NOT errors MATCHES "${STDERR_REGEX}")
    message(FATAL_ERROR "standard error does not match '${STDERR_REGEX}':\n${errors}")
endif()
