// Documents as JSON.
//
// The faithful form keeps all that the canonical layout tells:
//
//     {"version":"1.0","encoding":"UTF-8","standalone":true,"content":[...]}
//
//     an element       {"element":"p:name","attributes":{"a":"value"},"content":[...]}
//     a text           "text"
//     other nodes      {"comment":"..."}, {"cdata":"..."}, {"instruction":"target data"}
//
// `standalone`, `attributes` and `content` are left out where there is nothing to say. Names stand
// as in the document, declarations of namespaces are attributes. Texts and attribute values are
// decoded. Where that leaves open how they were written, with other escapes than &lt; and &amp;,
// they are objects, {"text":"a > b","escaped":"a &gt; b"}; `text` is left out where a reference
// cannot be resolved. The way back takes `escaped` as long as it stands for `text`, so that
// programs need to change the latter only.
//
// The compact form is for programs that want data: {"root":{"@a":"value","item":["1","2"]}}.
// An element is its text without the white space around; null if it is empty; or an object of its
// attributes, with "@" before their names, its elements, of which several of one name are a list
// in the place of the first, and its text as "#text". The rest is lost.
#pragma once

#include "decode.hpp"

#include <string>
#include <string_view>

namespace tool {

/// One line without its end.
std::string toJson(XML_DOCUMENT *document);
std::string toCompactJson(XML_DOCUMENT *document);

/// What came of JSON in the faithful form.
struct FromJson {
    Ref<XML_DOCUMENT> document; ///< Empty for an error.
    std::string error;
    size_t offset = 0; ///< Of the error, in bytes.
};

FromJson fromJson(std::string_view json);

} // namespace tool
