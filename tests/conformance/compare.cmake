# Runs COMMAND on the script in FOLDER and compares its output with the transcript.
execute_process(COMMAND ${COMMAND} ${FOLDER}/script.txt OUTPUT_VARIABLE told ERROR_VARIABLE problems RESULT_VARIABLE status)
file(READ ${FOLDER}/transcript.txt expected)
if(NOT status EQUAL 0 OR NOT problems STREQUAL "" OR NOT told STREQUAL expected)
  message(FATAL_ERROR "The transcript differs (status ${status}). ${problems}\n${told}")
endif()
