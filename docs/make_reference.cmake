# Runs doxygen and fails on what it finds wrong. Members without a comment are let pass: getters that
# their names explain bear none, and a comment above several members stands at the first. A class, an
# enumeration or a file without one is a fault.
#
#   cmake -D DOXYGEN=PROGRAM -D FOLDER=FOLDER -P FILE
cmake_minimum_required(VERSION 3.23)

execute_process(COMMAND ${DOXYGEN} ${FOLDER}/Doxyfile RESULT_VARIABLE status)
file(STRINGS ${FOLDER}/warnings.txt warnings)
list(FILTER warnings EXCLUDE REGEX
     "Member .*\\((function|variable|typedef|enumvalue|friend)\\) of .* is not documented")
list(JOIN warnings "\n" warnings)
if(NOT status EQUAL 0 OR NOT warnings STREQUAL "")
  message(FATAL_ERROR "doxygen ended with ${status}\n${warnings}")
endif()
