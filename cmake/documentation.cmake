# The target "docs": the reference of the public headers, as pages in the build folder. A warning fails it, so that no
# public declaration goes without its comment and no comment names what is not there.
find_package(Doxygen)
if(NOT DOXYGEN_FOUND)
    return()
endif()

set(DOXYGEN_PROJECT_BRIEF "${PROJECT_DESCRIPTION}")
set(DOXYGEN_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/docs)
set(DOXYGEN_STRIP_FROM_PATH ${PROJECT_SOURCE_DIR})
set(DOXYGEN_STRIP_FROM_INC_PATH ${PROJECT_SOURCE_DIR})
set(DOXYGEN_INPUT_FILTER "awk -f ${PROJECT_SOURCE_DIR}/docs/doxygen.awk")
set(DOXYGEN_JAVADOC_AUTOBRIEF YES)
set(DOXYGEN_EXTRACT_STATIC YES)
set(DOXYGEN_MACRO_EXPANSION YES)
set(DOXYGEN_EXPAND_ONLY_PREDEF YES)
set(DOXYGEN_PREDEFINED "KORVO_EXPORT=" "__GNUC__")
set(DOXYGEN_EXCLUDE_SYMBOLS "KORVO_CODE" "KORVO_ENTRY" "KORVO_ERROR_CATALOGUE")
set(DOXYGEN_MAX_INITIALIZER_LINES 1)
set(DOXYGEN_SHOW_INCLUDE_FILES NO)
set(DOXYGEN_VERBATIM_HEADERS NO)
set(DOXYGEN_HAVE_DOT NO)
set(DOXYGEN_WARN_AS_ERROR FAIL_ON_WARNINGS)
set(DOXYGEN_WARN_NO_PARAMDOC NO)
set(DOXYGEN_QUIET YES)

# Left out: a header for the sake of the others.
get_target_property(headers KorvoQRParser HEADER_SET)
doxygen_add_docs(docs ${headers} COMMENT "Making the reference")
