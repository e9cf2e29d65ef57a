# The flags that every target of the project is built with.
add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor -Woverloaded-virtual
                    -Wold-style-cast -Werror)
set(CMAKE_CXX_FLAGS_RELEASE "-O2") # assertions stay on

if(WIN32)
  add_compile_definitions(UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX WINVER=0x0601 _WIN32_WINNT=0x0601)
  # One file per bitness that imports only system libraries.
  add_link_options(-static -static-libgcc -static-libstdc++)
  # Headers of the platform use casts and conversions that our own code may not.
  add_compile_options(-Wno-cast-function-type)
  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    # Hosts call in with a stack aligned to 4 bytes only; floats follow the same rules as on 64 bit.
    add_compile_options(-march=pentium4 -mfpmath=sse -mstackrealign)
  endif()
endif()

# The same files wherever the checkout lies.
if(VANTIK_DEBUG_FILES)
  add_compile_options(-g -ffile-prefix-map=${PROJECT_SOURCE_DIR}=${PROJECT_NAME})
endif()

if(VANTIK_SANITIZE)
  # The sanitizers' own code misleads the compiler's flow warnings; every other build has them as errors.
  add_compile_options(-Wno-error)
  add_compile_options(-g1 -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  if(NOT VANTIK_FUZZ)
    # The tests are compiled more often than they run; fuzzers find more the faster they are.
    add_compile_options(-O1)
  endif()
  add_link_options(-fsanitize=address,undefined)
endif()
