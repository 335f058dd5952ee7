# Makes Debian packages with cpack: one for each component of install.cmake, and one for the database extension, if that is
# built.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME korvoqrparser)
set(CPACK_PACKAGE_CONTACT "KorvoQRParser maintainers")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_THREADS 0)

set(CPACK_COMPONENTS_ALL runtime development)
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS runtime)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "The shared library KorvoQRParser, which splits the text of a payment QR code
into its elements and checks them against the scheme's rules, and the
command-line tool korvoqr, which does the same for its arguments or lines of
text.")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "Headers, the static library, and the files for CMake and pkg-config, to build
programs that use the library KorvoQRParser.")

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME korvoqrparser)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME korvoqrparser-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)

if(KORVOQR_POSTGRESQL)
    # Debian's name for an extension says which server it is for, because a server loads only what was built for its version.
    set(server postgresql-${KORVOQR_POSTGRESQL_MAJOR})
    list(APPEND CPACK_COMPONENTS_ALL postgresql)
    set(CPACK_COMPONENT_POSTGRESQL_DESCRIPTION "The extension korvoqr for PostgreSQL ${KORVOQR_POSTGRESQL_MAJOR}, which checks and reads the payloads of
payment QR codes in SQL.")
    set(CPACK_DEBIAN_POSTGRESQL_PACKAGE_NAME ${server}-korvoqr)
    set(CPACK_DEBIAN_POSTGRESQL_PACKAGE_SECTION database)
    set(CPACK_DEBIAN_POSTGRESQL_PACKAGE_DEPENDS ${server})
endif()

# A package depends on the libraries that its programs link, and its shlibs file tells other programs which package has
# our library. The development package depends on the runtime package of the same version.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)

include(CPack)
