// Why the bytes of an input are no text.
#pragma once

#include "source/xml/hint/xml_refused.hpp"
#include "source/xml/hint/xml_words.hpp"

namespace xml {

/// About an input that was refused for its character set.
Advice charsetAdvice(const Refused &refused);

} // namespace xml
