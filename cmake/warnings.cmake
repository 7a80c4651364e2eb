# Warnings are errors in every target of this project, and in nothing that includes it.
function(voxml_warnings target)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror
    $<$<COMPILE_LANGUAGE:CXX>:-Wmissing-declarations>)
endfunction()
