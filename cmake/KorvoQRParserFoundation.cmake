# Gives the target KorvoQRParser::Foundation: what every file that imports Foundation needs. The library's own build
# includes this file, and the installed package does for whoever uses the Objective-C face. KORVO_GNUSTEP_HEADERS is where
# the folder ObjectiveC/gnustep, or its installed copy, lies.
if(TARGET KorvoQRParser::Foundation)
    return()
endif()
add_library(KorvoQRParser::Foundation INTERFACE IMPORTED GLOBAL)
if(APPLE)
    target_link_libraries(KorvoQRParser::Foundation INTERFACE "-framework Foundation")
else()
    # GNUstep with GCC's Objective-C runtime. The runtime's headers stand among GCC's own, which must not come
    # before those of clang.
    find_path(GNUSTEP_INCLUDE_DIR Foundation/Foundation.h PATH_SUFFIXES GNUstep REQUIRED)
    find_library(GNUSTEP_BASE_LIBRARY gnustep-base REQUIRED)
    find_library(BLOCKS_RUNTIME_LIBRARY BlocksRuntime REQUIRED)
    set(objcCompiler ${CMAKE_OBJC_COMPILER})
    if(NOT objcCompiler)
        set(objcCompiler ${CMAKE_OBJCXX_COMPILER})
    endif()
    execute_process(COMMAND ${objcCompiler} -print-file-name=libobjc.so
        OUTPUT_VARIABLE objcLibrary OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    cmake_path(GET objcLibrary PARENT_PATH gccDir)
    find_path(OBJC_RUNTIME_INCLUDE_DIR objc/objc.h HINTS ${gccDir}/include REQUIRED)
    target_include_directories(KorvoQRParser::Foundation SYSTEM INTERFACE ${GNUSTEP_INCLUDE_DIR} ${KORVO_GNUSTEP_HEADERS})
    target_compile_options(KorvoQRParser::Foundation INTERFACE
        $<$<COMPILE_LANGUAGE:OBJC,OBJCXX>:-fexceptions;-fconstant-string-class=NSConstantString>
        "$<$<COMPILE_LANG_AND_ID:OBJC,Clang>:SHELL:-fblocks -fobjc-runtime=gcc -idirafter ${OBJC_RUNTIME_INCLUDE_DIR}>"
        "$<$<COMPILE_LANG_AND_ID:OBJCXX,Clang>:SHELL:-fblocks -fobjc-runtime=gcc -idirafter ${OBJC_RUNTIME_INCLUDE_DIR}>")
    # GNUstep has a _Block_copy too, which does not copy what clang makes: whichever comes first is used.
    target_link_libraries(KorvoQRParser::Foundation INTERFACE
        ${BLOCKS_RUNTIME_LIBRARY} ${GNUSTEP_BASE_LIBRARY} objc)
endif()
