# The headers that take longest to read are read once for tests, tools and demo. Product and samples read them file by file,
# which shows what a file forgets. A compiler's cache knows nothing of headers that were read before: with one they are left alone.

set(VANTIK_STANDARD_HEADERS <algorithm> <array> <functional> <memory> <optional> <string> <vector>)
set(VANTIK_PLATFORM_HEADERS <windows.h> <ocidl.h> <olectl.h>)

# precompile_headers(TARGET HEADER...)
function(precompile_headers target)
  if(NOT CMAKE_CXX_COMPILER_LAUNCHER)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()

# reuse_headers(TARGET OWNER) - those that OWNER precompiled.
function(reuse_headers target owner)
  if(NOT CMAKE_CXX_COMPILER_LAUNCHER)
    target_precompile_headers(${target} REUSE_FROM ${owner})
    # It forgets which of those headers are the system's, and warns of them.
    target_compile_options(${target} PRIVATE -Wno-array-bounds -Wno-stringop-overread -Wno-stringop-overflow)
  endif()
endfunction()
