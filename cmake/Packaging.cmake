# What `cmake --build build --target package` puts into pescavo_VERSION_ARCH.deb: both programs,
# the sample input folder, the launcher the menu entry starts, the menu entry, icons, AppStream
# metadata and manual pages. Run-time dependencies are computed by dpkg-shlibdeps.
include(GNUInstallDirs)

set(PESCAVO_SHARE ${CMAKE_INSTALL_DATADIR}/pescavo)
set(PESCAVO_DOC ${CMAKE_INSTALL_DATADIR}/doc/pescavo)
set(PESCAVO_PACKAGE_FILES ${PROJECT_SOURCE_DIR}/packaging)
set(PESCAVO_GENERATED ${PROJECT_BINARY_DIR}/packaging)
file(MAKE_DIRECTORY ${PESCAVO_GENERATED})
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

install(TARGETS pescavo pescavo-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(PROGRAMS ${PESCAVO_PACKAGE_FILES}/pescavo-start DESTINATION ${CMAKE_INSTALL_LIBDIR}/pescavo)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/data/Input ${PROJECT_SOURCE_DIR}/docs/guide
        DESTINATION ${PESCAVO_SHARE})
install(FILES ${PESCAVO_PACKAGE_FILES}/org.pescavo.Pescavo.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)

string(TIMESTAMP PESCAVO_RELEASE_DATE "%Y-%m-%d" UTC)
configure_file(${PESCAVO_PACKAGE_FILES}/org.pescavo.Pescavo.metainfo.xml
               ${PESCAVO_GENERATED}/org.pescavo.Pescavo.metainfo.xml @ONLY)
install(FILES ${PESCAVO_GENERATED}/org.pescavo.Pescavo.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

set(PESCAVO_ICONS ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES ${PESCAVO_PACKAGE_FILES}/icons/pescavo.svg DESTINATION ${PESCAVO_ICONS}/scalable/apps)
foreach(size 16 32 48 64 128 256)
  install(FILES ${PESCAVO_PACKAGE_FILES}/icons/pescavo-${size}.png
          DESTINATION ${PESCAVO_ICONS}/${size}x${size}/apps RENAME pescavo.png)
endforeach()

# The manual pages are made from the programs' own --help and --version, so they never drift.
find_program(HELP2MAN help2man)
find_program(GZIP gzip REQUIRED)
if(HELP2MAN)
  set(pages)
  foreach(program pescavo pescavo-cli)
    if(program STREQUAL "pescavo")
      set(summary "dietary burden of pesticide residues in fish feed")
    else()
      set(summary "dietary burden of pesticide residues in fish feed, from the command line")
    endif()
    set(page ${PESCAVO_GENERATED}/${program}.1.gz)
    add_custom_command(
      OUTPUT ${page}
      COMMAND ${HELP2MAN} --no-info --no-discard-stderr --section=1 --name=${summary}
              --output=${PESCAVO_GENERATED}/${program}.1 $<TARGET_FILE:${program}>
      COMMAND ${GZIP} -9nf ${PESCAVO_GENERATED}/${program}.1
      DEPENDS ${program}
      COMMENT "Manual page of ${program}"
      VERBATIM)
    list(APPEND pages ${page})
  endforeach()
  add_custom_target(manpages ALL DEPENDS ${pages})
  install(FILES ${pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
else()
  message(WARNING "help2man is missing: the package will have no manual pages")
endif()

# Debian wants the copyright file and a compressed changelog in the package's doc folder.
configure_file(${PESCAVO_PACKAGE_FILES}/changelog ${PESCAVO_GENERATED}/changelog @ONLY)
add_custom_command(
  OUTPUT ${PESCAVO_GENERATED}/changelog.gz
  COMMAND ${GZIP} -9nf ${PESCAVO_GENERATED}/changelog
  DEPENDS ${PESCAVO_GENERATED}/changelog)
add_custom_target(package_changelog ALL DEPENDS ${PESCAVO_GENERATED}/changelog.gz)
install(FILES ${PESCAVO_PACKAGE_FILES}/copyright ${PESCAVO_GENERATED}/changelog.gz
        DESTINATION ${PESCAVO_DOC})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME pescavo)
set(CPACK_PACKAGE_VENDOR "Pescavo developers")
set(CPACK_PACKAGE_CONTACT "Pescavo developers <maintainers@pescavo.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "dietary burden of pesticide residues in fish feed")
set(CPACK_PACKAGE_DESCRIPTION
    "Pescavo is a tool for pesticide risk assessors. For one pesticide it computes
the dietary burden of a fish feed: the residue concentration, in mg/kg of feed
dry matter, of the feed that a linear programme mixes from the crops and
by-products the assessor chooses, within the target crude lipid and crude
protein of common carp or rainbow trout and the maximum inclusion of each
component. Above 0.1 mg/kg dry matter fish feeding studies are required.

The package holds the desktop program pescavo, the command-line runner
pescavo-cli and sample tables.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_SOURCE_IGNORE_FILES "/build.*/;/\\\\.git/")
include(CPack)
