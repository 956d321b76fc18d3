# The Debian package, by tools/package.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME corvane)
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_CONTACT "The Corvane project <corvane@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "start programs, press keys and dictate by voice")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Corvane is a voice-command assistant for people who cannot or do not want to
use their hands. It listens to the microphone, matches what is said against
its commands, and acts only on what it is sure of. It starts programs by
words that it is taught, presses keys, handles windows, reads texts aloud
and takes dictation.

Everything runs on the machine itself; nothing that is said leaves it.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA "${CMAKE_CURRENT_SOURCE_DIR}/debian/conffiles")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ
                                                GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)

# Libraries are found in the program; the models it listens and speaks with are not.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "pocketsphinx-en-us, espeak-ng-data")
# A server for microphone and speaker, the desktop's bus, the helper behind "open this page", the measure
# of the windows' text, other programs' texts, the terminal that the delivered keyword starts.
string(
  JOIN ", " CPACK_DEBIAN_PACKAGE_RECOMMENDS
  "pulseaudio | pipewire-pulse"
  "default-dbus-session-bus | dbus-session-bus"
  at-spi2-core
  fonts-liberation
  hicolor-icon-theme
  xdg-utils
  file
  xterm)
# Native windows on Wayland, the state of the connection, disc drives, printers.
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "qt6-wayland, network-manager, udisks2, cups")

# What only a Debian package has.
set(CPACK_PRE_BUILD_SCRIPTS "${CMAKE_CURRENT_SOURCE_DIR}/debian/add_papers.cmake")
include(CPack)
