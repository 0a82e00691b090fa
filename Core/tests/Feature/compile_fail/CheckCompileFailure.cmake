# Run with cmake -P: compiles SOURCE (syntax only, C++17, the kit's include root INCLUDE_DIR) with
# COMPILER and passes when the compilation fails with exactly one error whose text holds EXPECTED.
foreach(variable IN ITEMS COMPILER INCLUDE_DIR SOURCE EXPECTED)
    if(NOT DEFINED ${variable})
        message(FATAL_ERROR "${variable} is not set")
    endif()
endforeach()

execute_process(
    COMMAND "${COMPILER}" -std=c++17 -fsyntax-only "-I${INCLUDE_DIR}" "${SOURCE}"
    RESULT_VARIABLE result
    OUTPUT_VARIABLE output
    ERROR_VARIABLE output)

if(result EQUAL 0)
    message(FATAL_ERROR "${SOURCE} compiled, but must not")
endif()
string(FIND "${output}" "${EXPECTED}" found)
if(found EQUAL -1)
    message(FATAL_ERROR "the compiler did not say \"${EXPECTED}\":\n${output}")
endif()
string(REGEX MATCHALL "error:" errors "${output}")
list(LENGTH errors count)
if(NOT count EQUAL 1)
    message(FATAL_ERROR "${count} errors instead of one:\n${output}")
endif()
message(STATUS "one error, as expected: ${EXPECTED}")
