# Installs the build into a scratch folder, moves it, and builds and runs a host against it by its CMake package and by
# pkg-config. Takes BUILD, SOURCE, GENERATOR, COMPILER, SANITIZE and SCRATCH.
cmake_minimum_required(VERSION 3.25)

function(run)
    execute_process(COMMAND ${ARGV} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)
    if(NOT result EQUAL 0)
        list(JOIN ARGV " " command)
        message(FATAL_ERROR "${command}\nended with ${result}:\n${output}${errors}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

function(expect_equal what seen wanted)
    if(NOT seen STREQUAL wanted)
        message(FATAL_ERROR "${what}: seen\n${seen}\nwanted\n${wanted}")
    endif()
endfunction()

set(ENV{ORVALE_CODEPAGE} 65001)
file(REMOVE_RECURSE ${SCRATCH})
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${SCRATCH}/first)
file(RENAME ${SCRATCH}/first ${SCRATCH}/installed)  # both packages find what is theirs by their own place
set(samples ${SOURCE}/samples)
set(flags "")
if(SANITIZE)
    set(flags -fsanitize=${SANITIZE})
endif()

# By the CMake package.
run(${CMAKE_COMMAND} -G ${GENERATOR} -S ${SOURCE}/tests/install/consumer -B ${SCRATCH}/consumer
    -D CMAKE_PREFIX_PATH=${SCRATCH}/installed -D CMAKE_CXX_COMPILER=${COMPILER} -D CMAKE_CXX_FLAGS=${flags})
run(${CMAKE_COMMAND} --build ${SCRATCH}/consumer)
run(${SCRATCH}/consumer/contacts ${samples}/contacts.vcf ${SCRATCH}/contacts.qzs)
expect_equal("The names" "${output}" "Jürgen\nΣοφία\nАнна\n小明\n太郎\nفاطمة\nÅse\nTaxi\n")

# The installed command finds the installed module, and takes the host's file for what it is.
run(${SCRATCH}/installed/bin/orvale show --json ${SCRATCH}/contacts.qzs)
set(from_host "${output}")
run(${SCRATCH}/installed/bin/orvale show --json ${samples}/contacts.vcf)
expect_equal("The host's copy" "${from_host}" "${output}")

# By pkg-config.
find_program(PKG_CONFIG NAMES pkg-config pkgconf)
if(NOT PKG_CONFIG)
    return()
endif()
file(GLOB_RECURSE package ${SCRATCH}/installed/orvale.pc)
get_filename_component(folder ${package} DIRECTORY)
set(ENV{PKG_CONFIG_PATH} ${folder})
run(${PKG_CONFIG} --cflags --libs orvale)
separate_arguments(options UNIX_COMMAND "${output}")
run(${PKG_CONFIG} --variable=module orvale)
string(STRIP "${output}" module)
run(${COMPILER} -std=c++20 ${flags} -DORVALE_MODULE="${module}" ${SOURCE}/tests/install/consumer/contacts.cpp
    -o ${SCRATCH}/by-pkg-config ${options})
run(${SCRATCH}/by-pkg-config ${samples}/contacts-cp1252.vcf ${SCRATCH}/again.qzs)
