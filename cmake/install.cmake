# Lays the application out as a desktop expects it, below the prefix: resources, icon, and what
# makes it the program for its files and addresses.
include(GNUInstallDirs)

install(DIRECTORY resources/ DESTINATION ${CMAKE_INSTALL_DATADIR}/gexlo PATTERN desktop EXCLUDE
        PATTERN README.md EXCLUDE)
install(FILES resources/desktop/gexlo.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES resources/desktop/gexlo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
install(FILES resources/images/icon.svg RENAME gexlo.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
