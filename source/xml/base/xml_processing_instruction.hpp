// The fields of a processing instruction, for those who build or read it in place.
#pragma once

#include "source/xml/base/xml_character_data.hpp"
#include "xml/xml_processing_instruction.h"

struct XML_PROCESSING_INSTRUCTION : xml::CharacterData {};
