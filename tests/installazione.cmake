# Installs the build into a scratch prefix, checks what went where, then starts the installed
# program on a new, empty data folder and sees it fill the folder and stay up.
#   cmake -DBUILD=<build folder> -DSORGENTI=<sources> -DID=<application id>
#         -DVERSIONE=<version> -DLATI=<icon sizes> -P installazione.cmake
foreach(v BUILD SORGENTI ID VERSIONE LATI)
    if(NOT DEFINED ${v})
        message(FATAL_ERROR "Manca -D${v}")
    endif()
endforeach()

set(lavoro ${BUILD}/prova-installazione)
set(prefisso ${lavoro}/prefisso)
set(dati ${lavoro}/dati)
set(casa ${lavoro}/casa)
file(REMOVE_RECURSE ${lavoro})
file(MAKE_DIRECTORY ${dati} ${casa})

execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${prefisso}
    RESULT_VARIABLE esito OUTPUT_VARIABLE uscita ERROR_VARIABLE uscita)
if(NOT esito EQUAL 0)
    message(FATAL_ERROR "cmake --install non riesce (${esito}):\n${uscita}")
endif()

# Exactly these files: the program, its desktop files, its guide and its update site, nothing of
# the tools or libraries of the build.
set(attesi
    bin/vespara
    share/applications/${ID}.desktop
    share/metainfo/${ID}.metainfo.xml
    share/icons/hicolor/scalable/apps/${ID}.svg
    share/doc/vespara/NOTICE.md
    share/doc/vespara/copyright)
# Every page of the guide.
file(GLOB pagine RELATIVE ${SORGENTI}/docs ${SORGENTI}/docs/guida/*.html)
foreach(pagina IN LISTS pagine)
    list(APPEND attesi share/doc/vespara/${pagina})
endforeach()
foreach(lato IN LISTS LATI)
    list(APPEND attesi share/icons/hicolor/${lato}x${lato}/apps/${ID}.png)
endforeach()
file(GLOB_RECURSE installati RELATIVE ${prefisso} ${prefisso}/*)
# The update site is a folder of many pages: its own pages are checked below, the rest by name.
set(sito share/vespara/sito)
set(pagine_sito index.html vespara/index.html AggiornamentiVp/ColonneTotocalcio.htm
    Vespara/AggVer.html vespara/ClassifSerieA.html vespara/Quote.html)
foreach(pagina IN LISTS pagine_sito)
    if(NOT EXISTS ${prefisso}/${sito}/${pagina})
        message(FATAL_ERROR "Il sito installato non ha ${sito}/${pagina}")
    endif()
endforeach()
list(FILTER installati EXCLUDE REGEX "^${sito}/")
list(SORT attesi)
list(SORT installati)
if(NOT installati STREQUAL attesi)
    string(REPLACE ";" "\n  " a "${attesi}")
    string(REPLACE ";" "\n  " i "${installati}")
    message(FATAL_ERROR "File installati diversi dagli attesi.\nAttesi:\n  ${a}\nInstallati:\n  ${i}")
endif()

# Each PNG is a PNG of its own size (the width and height of its IHDR chunk).
foreach(lato IN LISTS LATI)
    set(png ${prefisso}/share/icons/hicolor/${lato}x${lato}/apps/${ID}.png)
    file(READ ${png} testa LIMIT 24 HEX)
    math(EXPR esadecimale "${lato}" OUTPUT_FORMAT HEXADECIMAL)
    string(SUBSTRING "${esadecimale}" 2 -1 cifre)
    string(LENGTH "${cifre}" n)
    math(EXPR zeri "8 - ${n}")
    string(REPEAT "0" ${zeri} riempimento)
    set(misura "${riempimento}${cifre}")
    string(TOLOWER "89504e470d0a1a0a0000000d49484452${misura}${misura}" attesa)
    if(NOT testa STREQUAL attesa)
        message(FATAL_ERROR "${png} non è un PNG di ${lato}x${lato}: ${testa}")
    endif()
endforeach()

# The names agree: the entry starts the installed program and names the icon; the metainfo
# launches the entry and carries the project's version.
file(READ ${prefisso}/share/applications/${ID}.desktop voce)
foreach(riga "Exec=vespara" "Icon=${ID}")
    if(NOT voce MATCHES "\n${riga}\n")
        message(FATAL_ERROR "La voce del desktop non ha ${riga}")
    endif()
endforeach()
file(READ ${prefisso}/share/metainfo/${ID}.metainfo.xml metainfo)
foreach(parte "<id>${ID}</id>" "<launchable type=\"desktop-id\">${ID}.desktop</launchable>"
        "<binary>vespara</binary>" "<release version=\"${VERSIONE}\"")
    string(FIND "${metainfo}" "${parte}" dove)
    if(dove EQUAL -1)
        message(FATAL_ERROR "Il metainfo non ha ${parte}")
    endif()
endforeach()

# The start: a screen of 1280 x 1024, as a first start on a small screen stops at a box before
# the archive table is made; no settings, no site of the user's.
file(WRITE ${lavoro}/schermo.json [=[
{ "screens": [ { "name": "Prova", "x": 0, "y": 0, "width": 1280, "height": 1024,
                 "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1 } ] }
]=])
set(ENV{QT_QPA_PLATFORM} "offscreen:configfile=${lavoro}/schermo.json")
set(ENV{VESPARA_DATI} ${dati})
set(ENV{VESPARA_SITO} "http://127.0.0.1:9")
set(ENV{HOME} ${casa})
set(ENV{XDG_CONFIG_HOME} ${casa}/.config)
set(ENV{XDG_CACHE_HOME} ${casa}/.cache)
set(ENV{XDG_DATA_HOME} ${casa}/.local/share)
set(secondi 4)
execute_process(COMMAND ${prefisso}/bin/vespara TIMEOUT ${secondi}
    RESULT_VARIABLE esito OUTPUT_VARIABLE uscita ERROR_VARIABLE uscita)
# Still running when the time was up: ended by the time-out, which is what is wanted.
if(NOT esito MATCHES "timeout")
    message(FATAL_ERROR "Il programma installato si è chiuso prima di ${secondi} secondi "
        "(${esito}):\n${uscita}")
endif()

file(SHA256 ${SORGENTI}/dati/Archivio.txt consegnato)
if(NOT EXISTS ${dati}/Archivio.txt)
    message(FATAL_ERROR "La cartella dei dati non ha ricevuto Archivio.txt:\n${uscita}")
endif()
file(SHA256 ${dati}/Archivio.txt copiato)
if(NOT copiato STREQUAL consegnato)
    message(FATAL_ERROR "Archivio.txt della cartella dei dati non è quello consegnato")
endif()
if(NOT EXISTS ${dati}/archivio.db)
    message(FATAL_ERROR "La cartella dei dati non ha archivio.db:\n${uscita}")
endif()
file(READ ${dati}/archivio.db tabella HEX)
string(HEX "SQLite format 3" firma)
string(FIND "${tabella}" "${firma}00" dove)
if(NOT dove EQUAL 0)
    message(FATAL_ERROR "archivio.db non è un file SQLite")
endif()
# The table holds the archive: the columns of its first and last contest are in the file.
file(STRINGS ${SORGENTI}/dati/Archivio.txt righe)
list(GET righe 0 prima)
list(GET righe -1 ultima)
foreach(riga IN ITEMS "${prima}" "${ultima}")
    string(REPLACE " " ";" campi "${riga}")
    list(GET campi 2 colonna)
    string(HEX "${colonna}" esadecimale)
    string(FIND "${tabella}" "${esadecimale}" dove)
    if(dove EQUAL -1)
        message(FATAL_ERROR "archivio.db non ha la colonna ${colonna} dell'archivio (${riga})")
    endif()
endforeach()
message(STATUS "Installato in ${prefisso}; avviato su ${dati} per ${secondi} secondi")
