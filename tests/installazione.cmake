# Installs the build as the Debian package holds it: under /usr in a staging folder, stripped,
# as CPack does before it packs. Checks what went where, then starts the installed program on a
# new, empty data folder and sees it fill the folder and stay up.
#   cmake -DBUILD=<build folder> -DSORGENTI=<sources> -DID=<application id>
#         -DVERSIONE=<version> -DLATI=<icon sizes> -DREADELF=<readelf> -P installazione.cmake
cmake_minimum_required(VERSION 3.25)
foreach(v BUILD SORGENTI ID VERSIONE LATI READELF)
    if(NOT DEFINED ${v})
        message(FATAL_ERROR "Manca -D${v}")
    endif()
endforeach()

set(lavoro ${BUILD}/prova-installazione)
set(radice ${lavoro}/pacchetto)
set(prefisso ${radice}/usr)
set(dati ${lavoro}/dati)
set(casa ${lavoro}/casa)
file(REMOVE_RECURSE ${lavoro})
file(MAKE_DIRECTORY ${dati} ${casa})

set(ENV{DESTDIR} ${radice})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix /usr --strip
    RESULT_VARIABLE esito OUTPUT_VARIABLE uscita ERROR_VARIABLE uscita)
unset(ENV{DESTDIR})
if(NOT esito EQUAL 0)
    message(FATAL_ERROR "cmake --install non riesce (${esito}):\n${uscita}")
endif()

# These files, and nothing else outside the guide's and the site's own folders: nothing of the
# tools or libraries of the build.
set(attesi
    bin/vespara
    share/applications/${ID}.desktop
    share/metainfo/${ID}.metainfo.xml
    share/icons/hicolor/scalable/apps/${ID}.svg
    share/man/man1/vespara.1.gz
    share/doc/vespara/NOTICE.md
    share/doc/vespara/copyright
    share/doc/vespara/changelog.gz)
# Every page of the guide.
file(GLOB pagine RELATIVE ${SORGENTI}/docs ${SORGENTI}/docs/guida/*.html)
if(NOT "guida/index.html" IN_LIST pagine)
    message(FATAL_ERROR "La guida non ha la pagina index.html")
endif()
foreach(pagina IN LISTS pagine)
    list(APPEND attesi share/doc/vespara/${pagina})
endforeach()
foreach(lato IN LISTS LATI)
    list(APPEND attesi share/icons/hicolor/${lato}x${lato}/apps/${ID}.png)
endforeach()
# The update site is a folder of many pages: its main pages are checked by name, the rest may be
# whatever the site's builder writes.
set(sito share/vespara/sito)
set(pagine_sito index.html vespara/index.html AggiornamentiVp/ColonneTotocalcio.htm
    Vespara/AggVer.html vespara/ClassifSerieA.html vespara/Quote.html)
foreach(pagina IN LISTS pagine_sito)
    list(APPEND attesi ${sito}/${pagina})
endforeach()
set(alberi ${sito}/)
file(GLOB_RECURSE installati RELATIVE ${prefisso} ${radice}/*)
set(mancanti)
foreach(f IN LISTS attesi)
    if(NOT f IN_LIST installati)
        list(APPEND mancanti ${f})
    endif()
endforeach()
set(estranei)
foreach(f IN LISTS installati)
    if(f IN_LIST attesi)
        continue()
    endif()
    set(dentro FALSE)
    foreach(albero IN LISTS alberi)
        string(FIND "${f}" "${albero}" dove)
        if(dove EQUAL 0)
            set(dentro TRUE)
        endif()
    endforeach()
    if(NOT dentro)
        list(APPEND estranei ${f})
    endif()
endforeach()
if(mancanti OR estranei)
    string(REPLACE ";" "\n  " m "${mancanti}")
    string(REPLACE ";" "\n  " e "${estranei}")
    message(FATAL_ERROR "File installati diversi dagli attesi.\nMancanti:\n  ${m}\n"
        "Non attesi:\n  ${e}")
endif()

# Stripped, as lintian wants the program of a package: no symbol table, no debugging sections,
# no names of the compilers.
execute_process(COMMAND ${READELF} -S -W ${prefisso}/bin/vespara
    RESULT_VARIABLE esito OUTPUT_VARIABLE sezioni ERROR_VARIABLE errore)
if(NOT esito EQUAL 0)
    message(FATAL_ERROR "readelf non legge il programma installato: ${errore}")
endif()
if(sezioni MATCHES "[.](symtab|comment|debug_[a-z]+)")
    message(FATAL_ERROR "Il programma installato non è spogliato: ha ${CMAKE_MATCH_0}")
endif()

# The manual page and the changelog: gzip at its highest level with no name or time in the header
# (flags 00, time 0, extra flags 02), holding the sources' text; both name the project's version.
find_program(GZIP gzip REQUIRED)
foreach(coppia "share/man/man1/vespara.1.gz;desktop/vespara.1"
        "share/doc/vespara/changelog.gz;desktop/changelog")
    list(GET coppia 0 compresso)
    list(GET coppia 1 sorgente)
    file(READ ${prefisso}/${compresso} testa LIMIT 10 HEX)
    if(NOT testa MATCHES "^1f8b0800000000000203$")
        message(FATAL_ERROR "${compresso} non è compresso con gzip -9n: ${testa}")
    endif()
    execute_process(COMMAND ${GZIP} -dc ${prefisso}/${compresso}
        RESULT_VARIABLE esito OUTPUT_VARIABLE testo)
    file(READ ${SORGENTI}/${sorgente} atteso)
    if(NOT esito EQUAL 0 OR NOT testo STREQUAL atteso)
        message(FATAL_ERROR "${compresso} non contiene ${sorgente}")
    endif()
endforeach()
file(READ ${SORGENTI}/desktop/changelog cambiamenti)
string(REPLACE "." "[.]" versione "${VERSIONE}")
if(NOT cambiamenti MATCHES "^vespara \\(${versione}\\) [a-z-]+; urgency=[a-z]+\n")
    string(REGEX MATCH "^[^\n]*" prima "${cambiamenti}")
    message(FATAL_ERROR "La prima voce del changelog non è della versione ${VERSIONE}: ${prima}")
endif()
file(STRINGS ${SORGENTI}/desktop/vespara.1 titolo REGEX "^[.]TH ")
if(NOT titolo MATCHES "^[.]TH VESPARA 1 \"[^\"]+\" \"Vespara ${versione}\" ")
    message(FATAL_ERROR "La pagina di manuale non è della versione ${VERSIONE}: ${titolo}")
endif()

# The copyright file in Debian's machine-readable format: the header paragraph names the format;
# every paragraph has only fields, one a line, with continuation lines indented; every Files
# paragraph gives a notice with its year and a licence whose text is in it or in a paragraph of
# its own.
file(READ ${prefisso}/share/doc/vespara/copyright diritti)
string(STRIP "${diritti}" diritti)
# Semicolons would split CMake's lists; the checks read no text where they matter.
string(REPLACE ";" "," diritti "${diritti}")
string(REGEX REPLACE "\n\n+" ";" paragrafi "${diritti}")
list(POP_FRONT paragrafi testata)
if(NOT testata MATCHES
        "^Format: https://www[.]debian[.]org/doc/packaging-manuals/copyright-format/1[.]0/\n")
    message(FATAL_ERROR "Il file copyright non nomina il formato:\n${testata}")
endif()
set(licenze_scritte)
set(licenze_usate)
set(file_trovati FALSE)
foreach(paragrafo IN LISTS paragrafi testata)
    string(REPLACE "\n" ";" righe "${paragrafo}")
    foreach(riga IN LISTS righe)
        if(NOT riga MATCHES "^([A-Z][A-Za-z-]*: .+| .+)$")
            message(FATAL_ERROR "Riga fuori formato nel file copyright: '${riga}'")
        endif()
    endforeach()
    if(paragrafo MATCHES "^License: ([^\n]+)\n ")
        list(APPEND licenze_scritte "${CMAKE_MATCH_1}")
    elseif(paragrafo MATCHES "^Files: ")
        set(file_trovati TRUE)
        if(NOT paragrafo MATCHES "\nCopyright: [^\n]*[0-9][0-9][0-9][0-9] [^\n]+")
            message(FATAL_ERROR "Un paragrafo Files senza nota di copyright:\n${paragrafo}")
        endif()
        if(NOT paragrafo MATCHES "\nLicense: ([^\n]+)(\n |$)")
            message(FATAL_ERROR "Un paragrafo Files senza licenza:\n${paragrafo}")
        endif()
        if(CMAKE_MATCH_2)
            list(APPEND licenze_scritte "${CMAKE_MATCH_1}")
        endif()
        list(APPEND licenze_usate "${CMAKE_MATCH_1}")
    endif()
endforeach()
if(NOT file_trovati)
    message(FATAL_ERROR "Il file copyright non ha un paragrafo Files")
endif()
foreach(licenza IN LISTS licenze_usate)
    if(NOT licenza IN_LIST licenze_scritte)
        message(FATAL_ERROR "Il file copyright non ha il testo della licenza ${licenza}")
    endif()
endforeach()

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
