# Run by cpack on the trees that go into the packages, one for each component: gives them what Debian's policy asks for.
cmake_minimum_required(VERSION 3.25)

function(compress)
    execute_process(COMMAND gzip -9n ${ARGV} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# The licence in the form of Debian's machine-readable copyright files.
file(READ ${CPACK_ORVALE_LICENSE} license)
string(REGEX MATCH "Copyright \\(c\\) ([^\n]*)" line "${license}")
set(holder "${CMAKE_MATCH_1}")
string(REGEX REPLACE "^.*Copyright [^\n]*\n\n" "" license "${license}")
string(STRIP "${license}" license)
string(REPLACE "\n\n" "\n.\n" license "${license}")
string(REPLACE "\n" "\n " license "${license}")
set(copyright "Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/
Upstream-Name: Orvale

Files: *
Copyright: ${holder}
License: Expat
 ${license}
")

foreach(component package IN ZIP_LISTS CPACK_COMPONENTS_ALL CPACK_ORVALE_PACKAGES)
    set(tree ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/${component}${CPACK_PACKAGING_INSTALL_PREFIX})
    set(doc ${tree}/share/doc/${package})
    file(WRITE ${doc}/copyright "${copyright}")
    file(COPY_FILE ${CPACK_ORVALE_CHANGELOG} ${doc}/changelog.Debian)
    compress(${doc}/changelog.Debian)
    file(GLOB manual ${tree}/share/man/man*/*.[0-9])
    if(manual)
        compress(${manual})
    endif()
    if(EXISTS ${doc}/CHANGELOG.md)
        file(RENAME ${doc}/CHANGELOG.md ${doc}/changelog)
        compress(${doc}/changelog)
    endif()
    file(REMOVE ${doc}/LICENSE)  # it is in the file copyright
    # Debian's zsh looks for what packages bring in a folder of its own.
    if(EXISTS ${tree}/share/zsh/site-functions)
        file(RENAME ${tree}/share/zsh/site-functions ${tree}/share/zsh/vendor-completions)
    endif()
endforeach()
