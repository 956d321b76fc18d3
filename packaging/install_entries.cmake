# Makes and installs the desktop entries: from the folder `entries` by way of the folder `made`.
set(program "${CMAKE_INSTALL_PREFIX}/bin/corvane")
if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
  # Every search path has it, and every desktop reads this folder.
  set(exec corvane)
  set(autostart /etc/xdg/autostart)
else()
  # In quotation marks, where these are escaped, and the escape once more as in any text of an entry.
  string(REGEX REPLACE "([\"`$])" "\\\\\\\\\\1" exec "${program}")
  string(REPLACE "%" "%%" exec "${exec}")
  set(exec "\"${exec}\"")
  set(autostart "${CMAKE_INSTALL_PREFIX}/etc/xdg/autostart")
endif()

configure_file("${entries}/corvane.desktop.in" "${made}/corvane.desktop" @ONLY)
configure_file("${entries}/autostart.desktop.in" "${made}/autostart/corvane.desktop" @ONLY)
file(INSTALL "${made}/corvane.desktop" DESTINATION "${CMAKE_INSTALL_PREFIX}/share/applications")
file(INSTALL "${made}/autostart/corvane.desktop" DESTINATION "${autostart}")
