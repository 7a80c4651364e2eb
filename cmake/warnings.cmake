# The warnings of every target of this project, and of nothing that includes it. The presets make
# them errors; a build with an unknown compiler does not fail over a new one.
function(voxml_warnings target)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow
    $<$<COMPILE_LANGUAGE:CXX>:-Wmissing-declarations>)
endfunction()
