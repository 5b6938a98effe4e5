# corvane_program(NAME PATH folder [WIDGETS] [INSTALL|SUPPORT] [WITHOUT source...] USES target...)
#   One program of folder/**.cpp, or of folder.cpp alone. Left out while it has no sources. INSTALL: it
#   is installed, and looks for share/corvane beside its folder. SUPPORT: not for shops, it is installed
#   only by cmake --install ... --component support. WITHOUT: sources in the folder that are programs by
#   themselves.
# corvane_templates()
#   The read-only originals of the data files, made by make_templates into share/corvane.
# corvane_help()
#   The compiled help beside them; left out where there is no compiler for it.
# corvane_compiled_only(NAME PATH folder USES target...)
#   Sources that are compiled, so that they follow the code, but make no program here.
# corvane_fuzz_targets(PATH folder USES target...)
#   One libFuzzer program for each source in the folder.

function(corvane_program name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "WIDGETS;INSTALL;SUPPORT" "PATH" "WITHOUT;USES")
    corvane_sources(sources ${arg_PATH})
    foreach(other IN LISTS arg_WITHOUT)
        list(REMOVE_ITEM sources ${PROJECT_SOURCE_DIR}/${other})
    endforeach()
    file(GLOB single CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${arg_PATH}.cpp)
    if(NOT sources AND NOT single)
        return()
    endif()
    corvane_existing(uses ${arg_USES})
    add_executable(${name} ${sources} ${single})
    corvane_join(${name})
    target_link_libraries(${name} PRIVATE ${uses} Qt6::Core corvane_options)
    target_compile_definitions(${name} PRIVATE QT_NO_CAST_FROM_ASCII)
    if(arg_WIDGETS)
        corvane_use_qt_generators(${name})
    endif()
    if(arg_INSTALL)
        install(TARGETS ${name} RUNTIME DESTINATION bin COMPONENT program)
    elseif(arg_SUPPORT)
        install(TARGETS ${name} RUNTIME DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/corvane
            COMPONENT support EXCLUDE_FROM_ALL)
    endif()
endfunction()

function(corvane_templates)
    if(NOT TARGET make_templates)
        return()
    endif()
    set(folder ${PROJECT_BINARY_DIR}/share/corvane)
    set(files ${folder}/main.mdb ${folder}/Corvane.mdb ${folder}/Care.mdb)
    set(locks ${folder}/main.ldb ${folder}/Corvane.ldb ${folder}/Care.ldb)
    add_custom_command(OUTPUT ${files}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
        COMMAND ${CMAKE_COMMAND} -E rm -f ${files}
        COMMAND make_templates ${folder}
        COMMAND ${CMAKE_COMMAND} -E rm -f ${locks}
        DEPENDS make_templates VERBATIM
        COMMENT "Writing the empty data files")
    foreach(menu data/menu.ini src/app/menu.ini)
        if(EXISTS ${PROJECT_SOURCE_DIR}/${menu})
            add_custom_command(OUTPUT ${folder}/menu.ini
                COMMAND ${CMAKE_COMMAND} -E copy ${PROJECT_SOURCE_DIR}/${menu} ${folder}/menu.ini
                DEPENDS ${PROJECT_SOURCE_DIR}/${menu} VERBATIM)
            list(APPEND files ${folder}/menu.ini)
            break()
        endif()
    endforeach()
    add_custom_target(templates ALL DEPENDS ${files})
    if(TARGET corvane)
        add_dependencies(corvane templates)
    endif()
    install(FILES ${files} DESTINATION share/corvane COMPONENT program)
endfunction()

function(corvane_help)
    find_program(CORVANE_CHMCMD chmcmd)
    if(NOT CORVANE_CHMCMD)
        message(STATUS "No chmcmd (package fp-utils): the help is shown without its .chm file")
        return()
    endif()
    set(file ${PROJECT_BINARY_DIR}/share/corvane/コルヴァン３ヘルプ.chm)
    file(GLOB pages CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/help/*.html)
    add_custom_command(OUTPUT ${file}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/share/corvane
        COMMAND ${PROJECT_SOURCE_DIR}/tools/make_help.sh ${file}
        DEPENDS ${pages} ${PROJECT_SOURCE_DIR}/tools/make_help.sh VERBATIM
        COMMENT "Compiling the help")
    add_custom_target(help_file ALL DEPENDS ${file})
    install(FILES ${file} DESTINATION share/corvane COMPONENT program)
endfunction()

function(corvane_compiled_only name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "PATH" "USES")
    corvane_sources(sources ${arg_PATH})
    add_library(${name} OBJECT ${sources})
    target_link_libraries(${name} PRIVATE ${arg_USES} corvane_options)
    target_compile_definitions(${name} PRIVATE QT_NO_CAST_FROM_ASCII)
endfunction()

function(corvane_fuzz_targets)
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "PATH" "USES")
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        message(FATAL_ERROR "The fuzz targets need clang: configure with "
            "-DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++")
    endif()
    corvane_existing(uses ${arg_USES})
    file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${arg_PATH}/*.cpp)
    foreach(source IN LISTS sources)
        get_filename_component(name ${source} NAME_WE)
        add_executable(${name} ${source})
        target_link_libraries(${name} PRIVATE ${uses} corvane_options)
        target_compile_options(${name} PRIVATE -fsanitize=fuzzer)
        target_link_options(${name} PRIVATE -fsanitize=fuzzer)
    endforeach()
endfunction()
