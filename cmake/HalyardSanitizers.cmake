# Sanitizers are a property of the whole build tree: HALYARD_SANITIZE=address,undefined.
# The first fault ends the program, so that no test passes over one.
if(HALYARD_SANITIZE)
  add_compile_options(-fsanitize=${HALYARD_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${HALYARD_SANITIZE})
endif()
