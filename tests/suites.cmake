# cmake -D PROGRAM=… -D PREFIX=… -D LABEL=… -D PLANES=… -D FILTER=… -D OUT=… -P suites.cmake: writes a file for ctest with
# an entry for each suite of a test program, which runs its tests one after the other, each in a process of its own.
execute_process(COMMAND "${PROGRAM}" --gtest_list_tests "--gtest_filter=${FILTER}"
                OUTPUT_VARIABLE listed COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+" lines "${listed}")
set(content "")
foreach(line IN LISTS lines)
  if(line MATCHES "^([A-Za-z0-9_/]+)\\.")
    set(suite "${CMAKE_MATCH_1}")
    string(APPEND content
      "add_test([=[${PREFIX}${suite}]=] [=[${PROGRAM}]=] --apart [=[--gtest_filter=${suite}.*]=])\n"
      "set_tests_properties([=[${PREFIX}${suite}]=] PROPERTIES LABELS ${LABEL} TIMEOUT 900 ENVIRONMENT GRX_TEST_PLANES=${PLANES})\n")
  endif()
endforeach()
file(WRITE "${OUT}" "${content}")
