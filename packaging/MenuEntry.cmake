# Where desktops may not look for programs, as under a home folder, the menu is told the place of this one.
if(NOT CMAKE_INSTALL_PREFIX MATCHES "^/usr(/local)?/?$")
    set(program "${CMAKE_INSTALL_PREFIX}/bin/plenair")
    if(program MATCHES "[^A-Za-z0-9/._-]")
        # Quoted as an argument, and escaped once more as every text of an entry.
        string(REGEX REPLACE [[(["`$\])]] [[\\\1]] program "${program}")
        string(REPLACE [[\]] [[\\]] program "${program}")
        string(REPLACE "%" "%%" program "\"${program}\"")
    endif()
    file(READ "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}/${menu_entry}" entry)
    string(REPLACE "Exec=plenair" "Exec=${program}" entry "${entry}")
    file(WRITE "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}/${menu_entry}" "${entry}")
endif()
