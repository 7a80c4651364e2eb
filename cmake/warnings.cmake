# The warnings of every target of this project, and of nothing that includes it. The presets make
# them errors; a build with an unknown compiler does not fail over a new one.
function(voxml_warnings target)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow
    $<$<COMPILE_LANGUAGE:CXX>:-Wmissing-declarations>
    # gcc 12 sees an overlap within std::string's operator+ at -O3 where there cannot be one.
    $<$<AND:$<COMPILE_LANG_AND_ID:CXX,GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)
endfunction()
