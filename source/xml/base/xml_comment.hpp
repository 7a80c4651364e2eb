// The fields of a comment, for those who build or read it in place.
#pragma once

#include "source/xml/base/xml_character_data.hpp"
#include "xml/xml_comment.h"

struct XML_COMMENT : xml::CharacterData {};
