# What every source is compiled with. Warnings are errors in our presets only (CMAKE_COMPILE_WARNING_AS_ERROR
# in CMakePresets.json): whoever builds with another compiler gets a program and not our opinion of it.

if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion)
  # No fused multiply-add: the last digit of the score must not depend on the processor.
  add_compile_options(-ffp-contract=off)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  add_compile_options(-Wno-restrict) # false alarms of this compiler on string concatenation
endif()

if(TAVIX_SANITIZE)
  # float-cast-overflow is no part of undefined: a number that its integer cannot hold.
  add_compile_options(-fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined,float-cast-overflow)
  add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()

if(TAVIX_FUZZ)
  # Counters at every edge. Executions count for more than steps in a debugger.
  add_compile_options(-fsanitize=fuzzer-no-link -O1 -gline-tables-only)
endif()
