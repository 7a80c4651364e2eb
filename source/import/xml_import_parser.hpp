// An owned Expat parser.
#pragma once

#include <expat.h>

#include <memory>

namespace xml {

struct ParserFree {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};
using Parser = std::unique_ptr<XML_ParserStruct, ParserFree>;

} // namespace xml
