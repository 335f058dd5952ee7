# The target "docs": the reference of the public headers, as pages in the build folder. A warning fails it, because every
# public declaration needs a comment, and every name in a comment must exist.
find_package(Doxygen)
if(NOT DOXYGEN_FOUND)
    return()
endif()

set(DOXYGEN_PROJECT_BRIEF "${PROJECT_DESCRIPTION}")
set(DOXYGEN_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/docs)
set(DOXYGEN_STRIP_FROM_PATH ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR})
set(DOXYGEN_STRIP_FROM_INC_PATH ${PROJECT_SOURCE_DIR}/KorvoQRParser/include)
set(DOXYGEN_INCLUDE_PATH ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/KorvoQRParser/include)
set(DOXYGEN_JAVADOC_AUTOBRIEF YES)
set(DOXYGEN_EXTRACT_STATIC YES)
set(DOXYGEN_MACRO_EXPANSION YES)
# Setters and error codes have no comment in the headers, because it would say the same each time. Doxygen makes their
# comments from the tables of properties and codes: it uses these macros instead of ours, and unlike a compiler it
# replaces parameters inside comments too.
set(DOXYGEN_PREDEFINED
    "KORVO_EXPORT:="
    "KORVO_CODE(constant,code,first,second,meaning):=/** meaning Tag first in the two-digit format, tag second in the \
one-character format. */ inline constexpr std::string_view constant = code\;"
    "KORVO_INDEX(name,Name):=/** The property of this name. */ name,"
    "KORVO_ENUMERATOR(constant,code,first,second,meaning):=/** meaning */ constant,"
    "KORVO_TEXT(name,Name):=/** Gives name this value. */ void QRCodeData::set##Name(std::optional<std::string> value) noexcept {}"
    "KORVO_FLAG(name,Name):=/** Gives name this value. */ void QRCodeData::set##Name(bool value) noexcept {}")
set(setters ${PROJECT_BINARY_DIR}/setters.h)
file(CONFIGURE OUTPUT ${setters} CONTENT "
#include <KorvoQRParser/Model/QRCodeDataProperties.h>
namespace korvo {
KORVO_QRCODEDATA_PROPERTIES(KORVO_TEXT, KORVO_FLAG)
}
")
set(DOXYGEN_EXCLUDE_SYMBOLS "KORVO_*")
set(DOXYGEN_MAX_INITIALIZER_LINES 1)
set(DOXYGEN_SHOW_INCLUDE_FILES NO)
set(DOXYGEN_SHOW_USED_FILES NO)
set(DOXYGEN_VERBATIM_HEADERS NO)
set(DOXYGEN_HAVE_DOT NO)
set(DOXYGEN_WARN_AS_ERROR FAIL_ON_WARNINGS)
set(DOXYGEN_WARN_NO_PARAMDOC NO)
set(DOXYGEN_QUIET YES)

get_target_property(headers KorvoQRParser HEADER_SET)
doxygen_add_docs(docs ${headers} ${setters} COMMENT "Making the reference")
