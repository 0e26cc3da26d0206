# What every source of ours is compiled with; third-party headers come in as SYSTEM and are exempt.
# The presets make each warning an error: whoever builds with a newer compiler is only told.
include(CheckCXXCompilerFlag)
include(CheckPIESupported)

add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wshadow)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # False alarms on string concatenation: GCC bug 105651, fixed in 13.
  add_compile_options(-Wno-restrict)
endif()

# a*b+c stays two roundings: similarities must be the same bits on every machine and compiler.
add_compile_options(-ffp-contract=off)

# Every program here reads bytes that a stranger may have written. Not all machines know each flag.
foreach(flag -fstack-protector-strong -fstack-clash-protection -fcf-protection)
  string(MAKE_C_IDENTIFIER "NORVAST_KNOWS${flag}" known)
  check_cxx_compiler_flag(${flag} ${known})
  if(${known})
    add_compile_options(${flag})
  endif()
endforeach()
add_compile_definitions(_GLIBCXX_ASSERTIONS)
if(NOT CMAKE_BUILD_TYPE STREQUAL "Debug")  # it needs optimisation
  add_compile_options(-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
endif()

check_pie_supported()
add_link_options(-Wl,-z,relro,-z,now -Wl,--as-needed)
