# Runs keo-scene once and checks what it did. Called by CTest as
#   cmake -DPROGRAM=<keo-scene> -DARGS=<arguments joined by |> -DEXIT=<status>
#         [-DEXPECTED_STDOUT=<file>] [-DSTDOUT_CONTAINS=<text>] [-DMESSAGE=<text>]
#         [-DSTDERR=<text>] -P CheckRun.cmake
# EXIT is the exit status the run must end with. EXPECTED_STDOUT: standard output must equal the
# file byte for byte (a unified diff is printed otherwise). STDOUT_CONTAINS: standard output must
# contain the text. MESSAGE: standard error must be exactly "keo-scene: MESSAGE" and the line
# that points to --help, and standard output empty. STDERR: standard error must be exactly
# "keo-scene: STDERR" and a newline. Without either, standard error must be empty.
string(REPLACE "|" ";" arguments "${ARGS}")
execute_process(COMMAND "${PROGRAM}" ${arguments}
    RESULT_VARIABLE status
    OUTPUT_VARIABLE stdout
    ERROR_VARIABLE stderr)

set(failures "")
if(NOT status STREQUAL EXIT)
    string(APPEND failures "exit status ${status}, expected ${EXIT}\n")
endif()

if(DEFINED MESSAGE)
    set(expected_stderr "keo-scene: ${MESSAGE}\nRun 'keo-scene --help' for usage.\n")
    if(NOT stderr STREQUAL expected_stderr)
        string(APPEND failures "standard error was:\n${stderr}expected:\n${expected_stderr}")
    endif()
    if(NOT stdout STREQUAL "")
        string(APPEND failures "standard output should be empty, was:\n${stdout}")
    endif()
elseif(DEFINED STDERR)
    if(NOT stderr STREQUAL "keo-scene: ${STDERR}\n")
        string(APPEND failures "standard error was:\n${stderr}expected:\nkeo-scene: ${STDERR}\n")
    endif()
elseif(NOT stderr STREQUAL "")
    string(APPEND failures "standard error should be empty, was:\n${stderr}")
endif()

if(DEFINED STDOUT_CONTAINS)
    string(FIND "${stdout}" "${STDOUT_CONTAINS}" position)
    if(position EQUAL -1)
        string(APPEND failures "standard output lacks \"${STDOUT_CONTAINS}\":\n${stdout}")
    endif()
endif()

if(DEFINED EXPECTED_STDOUT)
    file(READ "${EXPECTED_STDOUT}" expected)
    if(NOT stdout STREQUAL expected)
        # Show the difference; the actual output is kept beside the test for inspection.
        set(actual_file "${CMAKE_CURRENT_BINARY_DIR}/keo-scene-actual.txt")
        file(WRITE "${actual_file}" "${stdout}")
        execute_process(COMMAND diff -u "${EXPECTED_STDOUT}" "${actual_file}"
            OUTPUT_VARIABLE difference)
        string(APPEND failures "standard output differs from ${EXPECTED_STDOUT} "
            "(actual output in ${actual_file}):\n${difference}")
    endif()
endif()

if(NOT failures STREQUAL "")
    # A plain message keeps the text as it is (a fatal error's text would be re-wrapped).
    message("keo-scene ${arguments}:\n${failures}")
    message(FATAL_ERROR "the run of keo-scene did not do what was expected")
endif()
