# Installs the built tree and uses the installation as others do: the example built through the CMake package and
# through pkg-config, and the command. The installation is staged by DESTDIR and used where it was staged, so
# that a path that is fixed anywhere shows.
cmake_minimum_required(VERSION 3.25)

function(run)
  execute_process(COMMAND ${ARGV} COMMAND_ERROR_IS_FATAL ANY COMMAND_ECHO STDOUT OUTPUT_VARIABLE output)
  set(output "${output}" PARENT_SCOPE)
endfunction()

function(expect text)
  string(FIND "${output}" "${text}" position)
  if(position EQUAL -1)
    message(FATAL_ERROR "The output lacks \"${text}\":\n${output}")
  endif()
endfunction()

set(prefix ${WORK_DIR}/stage/opt/lwconfig)
file(REMOVE_RECURSE ${WORK_DIR})
run(${CMAKE_COMMAND} -E env DESTDIR=${WORK_DIR}/stage
    ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix /opt/lwconfig)

file(WRITE ${WORK_DIR}/registry/machine.reg "REGEDIT4

[HKEY_LOCAL_MACHINE\\Software\\Corvantis\\Lexiwend4]
\"ConfigPath\"=\"${prefix}/share/lwconfig/starter\"
")
set(ENV{LWCONFIG_REGISTRY} ${WORK_DIR}/registry)
file(GLOB templates LIST_DIRECTORIES ON ${prefix}/share/lwconfig/starter/Templates/*)

function(run_example program)
  run(${program})
  string(REGEX MATCHALL "[^\n]+: [1-9][0-9]* pages" listed "${output}")
  list(LENGTH listed listed_count)
  list(LENGTH templates template_count)
  if(NOT listed_count EQUAL template_count OR template_count EQUAL 0)
    message(FATAL_ERROR "${template_count} templates are installed, but the example lists:\n${output}")
  endif()
endfunction()

run(${CMAKE_COMMAND} -S ${SOURCE_DIR}/tests/packaging/consumer -B ${WORK_DIR}/consumer -G ${GENERATOR}
    -D CMAKE_PREFIX_PATH=${prefix} -D EXAMPLES=${SOURCE_DIR}/docs
    -D CMAKE_CXX_COMPILER=${CXX} -D CMAKE_CXX_FLAGS=${CXX_FLAGS})
run(${CMAKE_COMMAND} --build ${WORK_DIR}/consumer)
run_example(${WORK_DIR}/consumer/example)
file(COPY ${SOURCE_DIR}/share/starter DESTINATION ${WORK_DIR}/edited)
run(${WORK_DIR}/consumer/transaction ${WORK_DIR}/edited/starter)
expect("+")
run(grep -c "StyleSheet=\"house.css\"" ${WORK_DIR}/edited/starter/Templates -r)
expect("config.xml:1")

set(ENV{PKG_CONFIG_PATH} ${prefix}/${LIBDIR}/pkgconfig)
run(${PKG_CONFIG} --cflags --libs lwconfig)
separate_arguments(flags UNIX_COMMAND "${output}")
separate_arguments(cxx_flags UNIX_COMMAND "${CXX_FLAGS}")
run(${CXX} -std=c++20 ${cxx_flags} ${SOURCE_DIR}/docs/example.cpp -o ${WORK_DIR}/pkg-config-example ${flags}
    -Wl,-rpath,${prefix}/${LIBDIR})
run_example(${WORK_DIR}/pkg-config-example)

if(PYTHON)
  list(LENGTH templates template_count)
  run(${CMAKE_COMMAND} -E env PYTHONPATH=${prefix}/${PYTHON_DIR} PYTHONDONTWRITEBYTECODE=1
      ${PYTHON} -c "print(len(__import__('lwconfig').Root().PageTemplates), 'templates')")
  expect("${template_count} templates")
endif()

foreach(file IN ITEMS man/man1/lwconfig.1 zsh/site-functions/_lwconfig fish/vendor_completions.d/lwconfig.fish)
  file(SIZE ${prefix}/share/${file} size)
endforeach()
run(${prefix}/bin/lwconfig completion bash)
file(READ ${prefix}/share/bash-completion/completions/lwconfig installed)
if(NOT output STREQUAL installed)
  message(FATAL_ERROR "The installed completion for bash is not the one that the command prints")
endif()

run(${prefix}/bin/lwconfig --version)
expect(${VERSION})
set(ENV{LWCONFIG_REGISTRY} ${WORK_DIR}/no-registry)
run(${prefix}/bin/lwconfig show templates)
foreach(template IN LISTS templates)
  cmake_path(GET template FILENAME name)
  expect("${name}")
endforeach()
