# Installs the build into a scratch folder, moves it, and builds and runs the programs of docs/examples against it by its
# CMake package and by pkg-config. Takes BUILD, SOURCE, GENERATOR, COMPILER, SANITIZE and SCRATCH.
cmake_minimum_required(VERSION 3.25)

function(run)
    execute_process(COMMAND ${ARGV} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)
    if(NOT result EQUAL 0)
        list(JOIN ARGV " " command)
        message(FATAL_ERROR "${command}\nended with ${result}:\n${output}${errors}")
    endif()
    set(output "${output}" PARENT_SCOPE)
    set(errors "${errors}" PARENT_SCOPE)
endfunction()

function(expect_failure wanted)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_QUIET ERROR_VARIABLE errors)
    if(NOT "${result}: ${errors}" STREQUAL wanted)
        list(JOIN ARGN " " command)
        message(FATAL_ERROR "${command}\nended with ${result}:\n${errors}\nwanted\n${wanted}")
    endif()
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
set(programs ${SCRATCH}/examples)
run(${CMAKE_COMMAND} -G ${GENERATOR} -S ${SOURCE}/docs/examples -B ${programs}
    -D CMAKE_PREFIX_PATH=${SCRATCH}/installed -D CMAKE_CXX_COMPILER=${COMPILER} -D CMAKE_CXX_FLAGS=${flags})
run(${CMAKE_COMMAND} --build ${programs})

run(${programs}/read_contacts ${samples}/contacts.qzs)
expect_equal("The contacts" "${output}" "Jürgen
  family name: Müller
  given name: Jürgen
  mobile phone: +491713920055
  work phone: +493023125014
  email: juergen.mueller@example.com
  birthday: 19650314
王小明
  full name: 王小明
  mobile phone 2: 13155500147
  note: 客户\n春节前送礼 🎁
Taxi
  full name: Taxi
  phone: +442079460123
  type 4242: a type that no table names
(no name)
")
execute_process(COMMAND head -c 400 ${samples}/contacts.qzs OUTPUT_FILE ${SCRATCH}/cut.qzs)
expect_failure("1: damaged from byte 366 on\n" ${programs}/read_contacts ${SCRATCH}/cut.qzs)
expect_failure("1: no contacts that can be read\n" ${programs}/read_contacts ${samples}/mails.xml)

# The host's loss report is the command's: the installed command finds the installed module.
run(${SCRATCH}/installed/bin/orvale convert --to vcard ${samples}/contacts.qzs ${SCRATCH}/by-command.vcf)
string(REPLACE "orvale: ${SCRATCH}/by-command.vcf: " "" report "${errors}")
execute_process(COMMAND ${programs}/convert_contacts ${samples}/contacts.qzs ${SCRATCH}/by-host.vcf
    RESULT_VARIABLE result OUTPUT_VARIABLE output)
expect_equal("The exit code for a loss" "${result}" 3)
expect_equal("The loss report" "${output}" "${report}")
run(${CMAKE_COMMAND} -E compare_files ${SCRATCH}/by-command.vcf ${SCRATCH}/by-host.vcf)

# A suite is saved by its closing alone, over another one too; one that can't be saved is told.
foreach(time 1 2)
    run(${programs}/write_suite ${SCRATCH}/messages.xml)
    expect_equal("The suite" "${output}" "X100: 1 box\nJürgen: See you at six\n")
endforeach()
expect_failure("1: the suite can't be written\n" ${programs}/write_suite ${SCRATCH}/no-such-folder/messages.xml)

run(${SCRATCH}/installed/bin/orvale --version)
file(GLOB_RECURSE module ${SCRATCH}/installed/Orvale.so)
string(REGEX MATCH "module: [^\n]*" used "${output}")
expect_equal("The module in use" "${used}" "module: ${module}")

# What stands beside the command, unless it couldn't be written on this machine.
if(EXISTS ${BUILD}/pages)
    foreach(file man/man1/orvale.1 man/man5/orvale.5 bash-completion/completions/orvale zsh/site-functions/_orvale
            fish/vendor_completions.d/orvale.fish doc/orvale/README.md)
        if(NOT EXISTS ${SCRATCH}/installed/share/${file})
            message(FATAL_ERROR "share/${file} isn't installed")
        endif()
    endforeach()
endif()

# By pkg-config, as the documents tell.
find_program(PKG_CONFIG NAMES pkg-config pkgconf)
if(NOT PKG_CONFIG)
    return()
endif()
file(GLOB_RECURSE package ${SCRATCH}/installed/orvale.pc)
get_filename_component(folder ${package} DIRECTORY)
set(ENV{PKG_CONFIG_PATH} ${folder})

# Leaves the program that the command of a document builds as a.out in a folder of the name.
function(build_as_told document name)
    file(STRINGS ${SOURCE}/${document} command REGEX "^c\\+\\+ ")
    if(NOT command)
        message(FATAL_ERROR "${document} tells no command that begins with c++")
    endif()
    string(REGEX REPLACE "^c\\+\\+ " "${COMPILER} ${flags} " command "${command}")
    file(COPY ${SOURCE}/docs/examples/ DESTINATION ${SCRATCH}/${name})
    run(sh -c "cd ${SCRATCH}/${name} && ${command}")
endfunction()

build_as_told(README.md read)
run(${SCRATCH}/read/a.out ${samples}/contacts-cp1252.vcf)
build_as_told(docs/using-the-library.md write)
run(${SCRATCH}/write/a.out ${SCRATCH}/by-pkg-config.xml)
