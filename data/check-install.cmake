# Run with -DPREFIX=...: checks that "cmake --install" put the desktop integration in place.
foreach(file
        bin/kavrin
        bin/kavrin-cli
        share/applications/kavrin.desktop
        share/icons/hicolor/scalable/apps/kavrin.svg
        share/icons/hicolor/256x256/apps/kavrin.png
        share/mime/packages/kavrin.xml
        share/kavrin/KurzAnleitung.pdf
        share/kavrin/KurzAnleitung.html
        share/kavrin/WasIsNeu.txt)
    if(NOT EXISTS "${PREFIX}/${file}")
        message(FATAL_ERROR "missing after install: ${file}")
    endif()
endforeach()
file(READ "${PREFIX}/share/applications/kavrin.desktop" desktop)
foreach(line "Exec=kavrin %F" "Icon=kavrin" "MimeType=application/x-eep-anlage;")
    string(FIND "${desktop}" "${line}" at)
    if(at EQUAL -1)
        message(FATAL_ERROR "kavrin.desktop lacks '${line}'")
    endif()
endforeach()
file(READ "${PREFIX}/share/mime/packages/kavrin.xml" mime)
string(FIND "${mime}" "<glob pattern=\"*.anl3\"/>" at)
if(at EQUAL -1)
    message(FATAL_ERROR "the MIME type does not claim *.anl3")
endif()
