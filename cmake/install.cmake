# Installs two components: "runtime" to run programs, "development" to build them.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(packageDir ${CMAKE_INSTALL_LIBDIR}/cmake/KorvoQRParser)

# Both kinds of library are installed under the same target name, each in an export file of its own. The package's
# configuration includes one of the two.
foreach(target KorvoQRParser KorvoQRParserShared)
    if(NOT TARGET ${target})
        continue()  # a platform without shared libraries
    endif()
    if(target STREQUAL "KorvoQRParser")
        set(kind static)
    else()
        set(kind shared)
    endif()
    set_target_properties(${target} PROPERTIES EXPORT_NAME KorvoQRParser)
    install(TARGETS ${target} EXPORT KorvoQRParser-${kind}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
        FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)
    install(EXPORT KorvoQRParser-${kind}
        NAMESPACE KorvoQRParser:: DESTINATION ${packageDir} COMPONENT development)
endforeach()

configure_package_config_file(cmake/KorvoQRParserConfig.cmake.in KorvoQRParserConfig.cmake
    INSTALL_DESTINATION ${packageDir})
write_basic_package_version_file(KorvoQRParserConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/KorvoQRParserConfig.cmake
    ${PROJECT_BINARY_DIR}/KorvoQRParserConfigVersion.cmake
    DESTINATION ${packageDir} COMPONENT development)

# The .pc files find the prefix from their own location, so that the installed tree may be moved.
find_package(Threads REQUIRED)
file(RELATIVE_PATH KORVO_PC_TO_PREFIX
    ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" KORVO_PC_TO_PREFIX "${KORVO_PC_TO_PREFIX}")
# A program in C that links the static library needs the C++ runtime, which only a C++ compiler adds by itself.
set(KORVO_PC_CXX_RUNTIME ${CMAKE_CXX_IMPLICIT_LINK_LIBRARIES})
list(FILTER KORVO_PC_CXX_RUNTIME INCLUDE REGEX "^(std)?c[+][+](abi)?$")
list(REMOVE_DUPLICATES KORVO_PC_CXX_RUNTIME)
list(TRANSFORM KORVO_PC_CXX_RUNTIME PREPEND -l)
list(JOIN KORVO_PC_CXX_RUNTIME " " KORVO_PC_CXX_RUNTIME)
# Both libraries are in one folder, where -lKorvoQRParser finds the shared one. The static one therefore has a .pc file
# that names its file.
foreach(file korvoqrparser.pc korvoqrparser-static.pc)
    configure_file(cmake/${file}.in ${file} @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${file} DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
endforeach()
