# What is installed beside the programs, and the Debian package: tools/package, or cpack in a
# release build.
set(made ${CMAKE_BINARY_DIR}/packaging)
set(packaging ${PROJECT_SOURCE_DIR}/packaging)
file(MAKE_DIRECTORY ${made})

# tm_install_gz(FILE FOLDER NAME): FILE is compressed and installed as FOLDER/NAME.gz. Without name
# and date inside, so that equal files stay equal.
function(tm_install_gz file folder name)
  string(MAKE_C_IDENTIFIER ${folder}_${name} id)
  add_custom_command(OUTPUT ${made}/${id}.gz DEPENDS ${file} VERBATIM
                     COMMAND sh -c "gzip -9nc \"$1\" >\"$2\"" sh ${file} ${made}/${id}.gz)
  install(FILES ${made}/${id}.gz DESTINATION ${folder} RENAME ${name}.gz)
  set_property(GLOBAL APPEND PROPERTY TM_PACKAGE_FILES ${made}/${id}.gz)
endfunction()

tm_install_gz(${packaging}/man/tidemark.1 share/man/man1 tidemark.1)
tm_install_gz(${packaging}/man/tidemark-sim.1 share/man/man1 tidemark-sim.1)
tm_install_gz(${packaging}/man/zh_CN/tidemark.1 share/man/zh_CN/man1 tidemark.1)
tm_install_gz(${PROJECT_SOURCE_DIR}/CHANGELOG.md share/doc/tidemark changelog)
tm_install_gz(${packaging}/changelog.Debian share/doc/tidemark changelog.Debian)

# Desktops without an SVG reader, and software centres, take the icon as pixels.
set(icon ${PROJECT_SOURCE_DIR}/src/ui/icons/tidemark.svg)
add_executable(render_icon ${packaging}/RenderIcon.cpp)
target_link_libraries(render_icon PRIVATE Qt6::Svg)
foreach(size 48 128 256)
  set(png ${made}/tidemark-${size}.png)
  add_custom_command(OUTPUT ${png} DEPENDS ${icon} render_icon VERBATIM
                     COMMAND render_icon ${icon} ${size} ${png})
  install(FILES ${png} DESTINATION share/icons/hicolor/${size}x${size}/apps RENAME tidemark.png)
  set_property(GLOBAL APPEND PROPERTY TM_PACKAGE_FILES ${png})
endforeach()
get_property(files GLOBAL PROPERTY TM_PACKAGE_FILES)
add_custom_target(package_files ALL DEPENDS ${files})

install(FILES ${icon} DESTINATION share/icons/hicolor/scalable/apps)
install(FILES ${packaging}/tidemark.desktop DESTINATION share/applications)
install(FILES ${packaging}/tidemark.metainfo.xml DESTINATION share/metainfo)
install(FILES ${packaging}/tidemark.xml DESTINATION share/mime/packages)
install(FILES ${packaging}/60-tidemark-usbtmc.rules DESTINATION lib/udev/rules.d)
install(FILES ${packaging}/copyright DESTINATION share/doc/tidemark)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples DESTINATION share/doc/tidemark
        FILES_MATCHING PATTERN *.txt PATTERN *.DRIG)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/help DESTINATION share/tidemark OPTIONAL)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tidemark)
set(CPACK_PACKAGE_VENDOR "TideMark developers")
# A domain that is reserved for examples and never leads anywhere: the project has no site of its own.
set(CPACK_PACKAGE_CONTACT "TideMark developers <tidemark@tidemark.example>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "editor for arbitrary waveforms")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "\
TideMark puts a waveform together dot by dot from sines, pulses, noise,
expressions and strokes of the mouse, shows it in volts over dots or time,
and keeps it in files that other tools can read. Digital patterns of up
to 16 channels are edited beside the analog waveforms.
.
Waveforms are sent to signal generators of the KT1100, KT2200 and KT3300
families over USB or RS232, and read back. A simulated instrument,
tidemark-sim, takes their place where there is none.")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
# File types in the menu, Chinese texts, the toolkit's own texts in Chinese, and desktops without an X
# server.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "desktop-file-utils, fonts-noto-cjk, qt6-translations-l10n, qt6-wayland, shared-mime-info")
# Paper is reached through a print server; PDF files need none.
set(CPACK_DEBIAN_PACKAGE_SUGGESTS cups)
include(CPack)
