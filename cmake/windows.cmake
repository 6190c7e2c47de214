# Builds for Windows with Debian's cross compilers; the programs run under wine. LWCONFIG_TRIPLE is
# x86_64-w64-mingw32 or, for 32-bit programs, i686-w64-mingw32; LWCONFIG_SYSROOT is where tools/windows-libraries
# put the libraries for it.
set(CMAKE_SYSTEM_NAME Windows)
string(REGEX REPLACE "-.*" "" CMAKE_SYSTEM_PROCESSOR ${LWCONFIG_TRIPLE})
set(CMAKE_C_COMPILER ${LWCONFIG_TRIPLE}-gcc-posix)
set(CMAKE_CXX_COMPILER ${LWCONFIG_TRIPLE}-g++-posix)
set(CMAKE_RC_COMPILER ${LWCONFIG_TRIPLE}-windres)
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES LWCONFIG_TRIPLE LWCONFIG_SYSROOT)
set(CMAKE_FIND_ROOT_PATH ${LWCONFIG_SYSROOT} /usr/${LWCONFIG_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_LIBDIR} ${LWCONFIG_SYSROOT}/lib/pkgconfig)
set(ENV{PKG_CONFIG_SYSROOT_DIR} "")
# The compiler's own libraries are part of each program.
set(link_flags -static)
if(CMAKE_SYSTEM_PROCESSOR STREQUAL i686)
  # A name without the size of its arguments is good enough for an export.
  string(APPEND link_flags " -Wl,--enable-stdcall-fixup")
endif()
foreach(kind EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "${link_flags}")
endforeach()
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../tools/windows-run)
