if(NORVAST_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
if(NORVAST_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
  # Code that must know: limits on address space do not go with a sanitizer's shadow memory.
  add_compile_definitions(NORVAST_SANITIZED)
endif()
