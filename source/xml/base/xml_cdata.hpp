// The fields of a CDATA section, for those who build or read it in place.
#pragma once

#include "source/xml/base/xml_character_data.hpp"
#include "xml/xml_cdata.h"

struct XML_CDATA : xml::CharacterData {};
