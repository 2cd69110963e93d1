# Every target of this project is compiled with these warnings, each of which stops the
# build where HALYARD_WARNINGS_AS_ERRORS is on.
function(halyard_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
  if(HALYARD_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()
