# Two Debian packages, made by cpack: what is installed as "runtime" and as "development".

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
command-line tool korvoqr, which does the same for its arguments or for lines.")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "Headers, static library, and what CMake and pkg-config need to build programs
that use the library KorvoQRParser.")

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME korvoqrparser)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME korvoqrparser-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)

# What the programs in a package are linked to, the package's own library for those who link to it, and the runtime
# package of the very same version for the development package.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)

# A program that links the static library needs what the library was built with: the package that owns the ICU found here.
# Somebody else's build of ICU belongs to none, and nothing can be asked for.
execute_process(COMMAND dpkg-query --search ${ICU_UC_LIBRARY_RELEASE}
    OUTPUT_VARIABLE icuOwner ERROR_QUIET)
if(icuOwner MATCHES "^([^:]+):")
    set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS ${CMAKE_MATCH_1})
endif()

include(CPack)
