# cmake -DCOMPILER=... -DSNIPPET=... "-DFLAGS=..." -P check.cmake
#
# The first line of a snippet says what the compiler must complain of, or "builds".
file(STRINGS "${SNIPPET}" expected LIMIT_COUNT 1)
string(REPLACE "// " "" expected "${expected}")
execute_process(COMMAND "${COMPILER}" -std=c++20 -fsyntax-only ${FLAGS} "${SNIPPET}"
  RESULT_VARIABLE result ERROR_VARIABLE errors OUTPUT_QUIET)
if(expected STREQUAL "builds")
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${SNIPPET} does not build:\n${errors}")
  endif()
elseif(result EQUAL 0)
  message(FATAL_ERROR "${SNIPPET} builds.")
elseif(NOT errors MATCHES "${expected}")
  message(FATAL_ERROR "${SNIPPET}: the compiler does not say \"${expected}\":\n${errors}")
endif()
