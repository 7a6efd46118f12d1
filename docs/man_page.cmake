# Makes the manual page of a program from its own --help (run as
# cmake -DPROGRAM=... -DHELP_OPTION=--help -DOUT=.../name.1 -P man_page.cmake):
# the help is the one source of both. The page's NAME line is the help's
# description, its first line that is not the usage line, without the
# program's name in front; a gzipped copy goes beside it for installing.
foreach(variable PROGRAM HELP_OPTION OUT HELP2MAN GZIP VERSION)
  if(NOT DEFINED ${variable})
    message(FATAL_ERROR "man_page.cmake needs ${variable}")
  endif()
endforeach()
get_filename_component(name "${PROGRAM}" NAME)
execute_process(COMMAND "${PROGRAM}" --help OUTPUT_VARIABLE help RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "${name} --help failed: ${status}")
endif()
string(REPLACE "\n" ";" lines "${help}")
set(description "")
foreach(line IN LISTS lines)
  if(NOT line STREQUAL "" AND NOT line MATCHES "^Usage:")
    set(description "${line}")
    break()
  endif()
endforeach()
string(REGEX REPLACE "^${name}: " "" description "${description}")
execute_process(
  COMMAND "${HELP2MAN}" --no-info --section=1 --help-option=${HELP_OPTION} --version-option=--version
          "--name=${description}" "--source=Tesselo ${VERSION}" "--manual=Tesselo Manual" --output=${OUT} "${PROGRAM}"
  RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "help2man failed on ${name}")
endif()
execute_process(COMMAND "${GZIP}" -9 -n -c "${OUT}" OUTPUT_FILE "${OUT}.gz" RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "gzip failed on ${OUT}")
endif()
