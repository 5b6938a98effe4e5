# corvane_read_version()
#   Sets CORVANE_VERSION to what src/core/data/program_version.h says.
# corvane_desktop()
#   What a desktop wants besides the program: its entry, icons, AppStream data and manual pages. The
#   icons of fixed sizes are drawn where there is a program for it; desktops draw the SVG else.

set(CORVANE_DESKTOP_ID jp.example.Corvane3)

macro(corvane_read_version)
    file(STRINGS ${CMAKE_CURRENT_SOURCE_DIR}/src/core/data/program_version.h numbers
        REGEX "^inline constexpr int ")
    string(REGEX MATCHALL "[0-9]+" numbers "${numbers}")
    list(JOIN numbers "." CORVANE_VERSION)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS src/core/data/program_version.h)
endmacro()

# The day of the newest entry in the change log, which has to be about this version.
function(corvane_release_date out)
    set(log ${PROJECT_SOURCE_DIR}/packaging/changelog)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${log})
    file(STRINGS ${log} lines LIMIT_COUNT 60 ENCODING UTF-8)
    list(GET lines 0 title)
    if(NOT title MATCHES "^corvane \\(([0-9.]+)\\)" OR
            NOT CMAKE_MATCH_1 VERSION_EQUAL PROJECT_VERSION)
        message(FATAL_ERROR "packaging/changelog does not begin with version ${PROJECT_VERSION}.")
    endif()
    list(FILTER lines INCLUDE REGEX "^ -- ")
    list(GET lines 0 signature)
    if(NOT signature MATCHES ", ([0-9][0-9]) ([A-Z][a-z][a-z]) ([0-9]+) ")
        message(FATAL_ERROR "packaging/changelog: its newest entry has no date.")
    endif()
    set(months Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec)
    list(FIND months ${CMAKE_MATCH_2} month)
    math(EXPR month "${month} + 101")
    string(SUBSTRING ${month} 1 2 month)
    set(${out} ${CMAKE_MATCH_3}-${month}-${CMAKE_MATCH_1} PARENT_SCOPE)
endfunction()

function(corvane_icons)
    set(drawing ${PROJECT_SOURCE_DIR}/src/ui/icons/corvane.svg)
    set(themes ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
    install(FILES ${drawing} DESTINATION ${themes}/scalable/apps
        RENAME ${CORVANE_DESKTOP_ID}.svg COMPONENT program)
    find_program(CORVANE_RSVG rsvg-convert)
    if(NOT CORVANE_RSVG)
        message(STATUS "No rsvg-convert (package librsvg2-bin): the icon is installed as SVG only")
        return()
    endif()
    set(icons)
    foreach(size 16 22 24 32 48 64 128 256)
        set(icon ${PROJECT_BINARY_DIR}/share/icons/${size}.png)
        add_custom_command(OUTPUT ${icon}
            COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/share/icons
            COMMAND ${CORVANE_RSVG} --width ${size} --height ${size} --output ${icon} ${drawing}
            DEPENDS ${drawing} VERBATIM)
        list(APPEND icons ${icon})
        install(FILES ${icon} DESTINATION ${themes}/${size}x${size}/apps
            RENAME ${CORVANE_DESKTOP_ID}.png COMPONENT program)
    endforeach()
    add_custom_target(icons ALL DEPENDS ${icons})
endfunction()

function(corvane_desktop)
    corvane_release_date(CORVANE_RELEASE_DATE)
    set(from ${PROJECT_SOURCE_DIR}/packaging)
    set(made ${PROJECT_BINARY_DIR}/share)
    configure_file(${from}/${CORVANE_DESKTOP_ID}.metainfo.xml.in
        ${made}/${CORVANE_DESKTOP_ID}.metainfo.xml @ONLY)
    configure_file(${from}/man/corvane.1.in ${made}/man/corvane.1 @ONLY)
    configure_file(${from}/man/corvane.ja.1.in ${made}/man/ja/corvane.1 @ONLY)
    install(FILES ${from}/${CORVANE_DESKTOP_ID}.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT program)
    install(FILES ${made}/${CORVANE_DESKTOP_ID}.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo COMPONENT program)
    install(FILES ${made}/man/corvane.1
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT program)
    install(FILES ${made}/man/ja/corvane.1
        DESTINATION ${CMAKE_INSTALL_MANDIR}/ja/man1 COMPONENT program)
    target_compile_definitions(corvane PRIVATE CORVANE_DESKTOP_ID="${CORVANE_DESKTOP_ID}")
    corvane_icons()
endfunction()
