# What makes a fault in the program harder to use against whoever runs it: calls that know the size of their
# buffers, guarded stacks, marked targets of jumps (which count once the C library of the distribution is built
# so, too), code at addresses drawn anew at each start, and tables of the linker that are read-only from then
# on. Not under the sanitizers, which bring their own and see more, nor without optimisation, where the checked
# calls do nothing but warn. tests/security looks at the programs.

if(NOT CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang" OR TAVIX_SANITIZE OR NOT CMAKE_BUILD_TYPE MATCHES "Rel")
  return()
endif()

include(CheckCXXCompilerFlag)

# CMake's own property would compile our libraries for shared ones, though they all end up in programs.
set(module $<STREQUAL:$<TARGET_PROPERTY:TYPE>,MODULE_LIBRARY>)
add_compile_options($<$<NOT:${module}>:-fPIE>)
add_link_options($<$<NOT:${module}>:-pie>)

# A distribution's compiler may set a level of its own.
add_compile_options(-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3 -fstack-protector-strong)
foreach(flag -fstack-clash-protection -fcf-protection) # not for every processor
  string(MAKE_C_IDENTIFIER "TAVIX_HAS${flag}" known)
  check_cxx_compiler_flag(${flag} ${known})
  if(${known})
    add_compile_options(${flag})
  endif()
endforeach()
add_link_options(-Wl,-z,relro,-z,now,-z,noexecstack)
set(TAVIX_HARDENED hardened)
