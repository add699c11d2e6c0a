# The one place for language level, warnings and instrumentation. Every target links veldrane_compiler, but for what can't
# live with instrumentation, which links veldrane_warnings.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
# The static layers go into the program and into the desktop's library alike. Hidden, each has its own copy, and a call
# within costs no more than in code that is bound to its place.
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

add_library(veldrane_warnings INTERFACE)
target_compile_options(veldrane_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor -Wold-style-cast
  -Woverloaded-virtual -Wcast-qual -Wformat=2 -Werror
  -Wno-missing-field-initializers # designated initialisers name what they set, and leave out the rest on purpose
  # g++ 12 sees overlaps in std::string's operator+ that are not there (GCC bug 105651), and, when it optimises, strings
  # of aggregates that are destroyed before they are made (GCC bug 105562).
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict> $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
add_library(veldrane_compiler INTERFACE)
target_link_libraries(veldrane_compiler INTERFACE veldrane_warnings)
if(VELDRANE_SANITIZE)
  target_compile_options(veldrane_compiler INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(veldrane_compiler INTERFACE -fsanitize=address,undefined)
endif()
if(VELDRANE_FUZZ)
  target_compile_options(veldrane_compiler INTERFACE -fsanitize=fuzzer-no-link)
  target_link_options(veldrane_compiler INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(VELDRANE_COVERAGE)
  target_compile_options(veldrane_compiler INTERFACE --coverage)
  target_link_options(veldrane_compiler INTERFACE --coverage)
endif()
