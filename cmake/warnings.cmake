# What every source of ours is compiled with; third-party headers come in as SYSTEM and are exempt.
add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # False alarms on string concatenation: GCC bug 105651, fixed in 13.
  add_compile_options(-Wno-restrict)
endif()

# a*b+c stays two roundings: similarities must be the same bits on every machine and compiler.
add_compile_options(-ffp-contract=off)

# Every program here reads bytes that a stranger may have written.
add_compile_options(-fstack-protector-strong)
if(CMAKE_BUILD_TYPE STREQUAL "Release")
  add_compile_options(-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
endif()

include(CheckPIESupported)
check_pie_supported()
add_link_options(-Wl,-z,relro,-z,now -Wl,--as-needed)
