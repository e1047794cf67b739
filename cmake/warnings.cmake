# Warnings are errors; sanitizers apply to everything that is built.
add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 sees copies that overlap in std::basic_string where there are none.
  add_compile_options(-Wno-restrict)
endif()
if(KEL_SANITIZE)
  add_compile_options(-fsanitize=${KEL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${KEL_SANITIZE})
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # What a sanitizer adds makes GCC lose sight of where a value comes from.
    add_compile_options(-Wno-maybe-uninitialized)
  endif()
endif()
if(KEL_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
  add_link_options(-fsanitize=fuzzer-no-link)
endif()
