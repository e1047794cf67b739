# Warnings are errors; sanitizers apply to everything that is built.
add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
if(KEL_SANITIZE)
  add_compile_options(-fsanitize=${KEL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${KEL_SANITIZE})
endif()
