# Defines the target KorvoQRParser::Foundation, which every file that imports Foundation needs. The library's own build
# includes this file, and so does the installed package for programs that use the Objective-C face.
# KORVO_GNUSTEP_HEADERS is the path of the folder ObjectiveC/gnustep or its installed copy.
if(TARGET KorvoQRParser::Foundation)
    return()
endif()
add_library(KorvoQRParser::Foundation INTERFACE IMPORTED GLOBAL)
if(APPLE)
    target_link_libraries(KorvoQRParser::Foundation INTERFACE "-framework Foundation")
else()
    # GNUstep with GCC's Objective-C runtime. The runtime's headers are in GCC's own include folder, which clang must
    # search after its own.
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
    # GNUstep has a _Block_copy too, but it does not copy clang's blocks. The first library with one wins, so the blocks
    # runtime comes first.
    target_link_libraries(KorvoQRParser::Foundation INTERFACE
        ${BLOCKS_RUNTIME_LIBRARY} ${GNUSTEP_BASE_LIBRARY} objc)
endif()
