# Lets clang-tidy read each source of the given targets as it is compiled, with the configuration in .clang-tidy.
# A change of the configuration counts as a change of every source.
function(lwconfig_tidy)
  find_program(LWCONFIG_CLANG_TIDY NAMES clang-tidy-14 clang-tidy REQUIRED)
  foreach(target IN LISTS ARGN)
    set_target_properties(${target} PROPERTIES CXX_CLANG_TIDY "${LWCONFIG_CLANG_TIDY};--quiet")
    get_target_property(sources ${target} SOURCES)
    set_source_files_properties(${sources} TARGET_DIRECTORY ${target}
                                PROPERTIES OBJECT_DEPENDS ${PROJECT_SOURCE_DIR}/.clang-tidy)
  endforeach()
endfunction()
