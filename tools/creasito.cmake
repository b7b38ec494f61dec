# Makes the update site of the build: the folder from scratch, so that no page of an older data
# folder stays in it, and the tool's list of pages kept out of the build's output unless it fails.
#   cmake -DSTRUMENTO=<creasitolocale> -DDATI=<data folder> -DSITO=<site folder> -P creasito.cmake
file(REMOVE_RECURSE ${SITO})
execute_process(COMMAND ${STRUMENTO} ${DATI} ${SITO}
    RESULT_VARIABLE esito OUTPUT_VARIABLE uscita ERROR_VARIABLE errori)
if(NOT esito EQUAL 0)
    message(FATAL_ERROR "creasitolocale non riesce (${esito}):\n${uscita}${errori}")
endif()
