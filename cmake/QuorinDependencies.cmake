# The libraries of others that some of ours link, as targets. The tree and the installed package
# both include this file, so that the names mean the same in both.

# quorin_find_xlsxwriter(): makes quorin::xlsxwriter, where the library is there. Asked of the file
# system and not of pkg-config: Debian's entry there states another version.
macro(quorin_find_xlsxwriter)
    find_path(QUORIN_XLSXWRITER_INCLUDE xlsxwriter.h)
    find_library(QUORIN_XLSXWRITER_LIBRARY xlsxwriter)
    mark_as_advanced(QUORIN_XLSXWRITER_INCLUDE QUORIN_XLSXWRITER_LIBRARY)
    if(QUORIN_XLSXWRITER_INCLUDE AND QUORIN_XLSXWRITER_LIBRARY AND NOT TARGET quorin::xlsxwriter)
        add_library(quorin::xlsxwriter INTERFACE IMPORTED)
        set_target_properties(
            quorin::xlsxwriter
            PROPERTIES
                INTERFACE_LINK_LIBRARIES "${QUORIN_XLSXWRITER_LIBRARY}"
                INTERFACE_INCLUDE_DIRECTORIES "${QUORIN_XLSXWRITER_INCLUDE}"
        )
    endif()
endmacro()

# quorin_find_inih(): makes quorin::inih, where the library is there.
macro(quorin_find_inih)
    find_path(QUORIN_INIH_INCLUDE INIReader.h)
    find_library(QUORIN_INIH_LIBRARY inih)
    find_library(QUORIN_INIREADER_LIBRARY INIReader)
    mark_as_advanced(QUORIN_INIH_INCLUDE QUORIN_INIH_LIBRARY QUORIN_INIREADER_LIBRARY)
    if(
        QUORIN_INIH_INCLUDE
        AND QUORIN_INIH_LIBRARY
        AND QUORIN_INIREADER_LIBRARY
        AND NOT TARGET quorin::inih
    )
        add_library(quorin::inih INTERFACE IMPORTED)
        set_target_properties(
            quorin::inih
            PROPERTIES
                INTERFACE_LINK_LIBRARIES "${QUORIN_INIREADER_LIBRARY};${QUORIN_INIH_LIBRARY}"
                INTERFACE_INCLUDE_DIRECTORIES "${QUORIN_INIH_INCLUDE}"
        )
    endif()
endmacro()
