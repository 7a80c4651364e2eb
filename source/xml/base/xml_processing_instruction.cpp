#include "xml/xml_processing_instruction.h"

#include "source/xml/base/xml_object.hpp"
#include "source/xml/base/xml_processing_instruction.hpp"
#include "xml/xml_value.h"

XML_OBJECT(ProcessingInstruction, XML_PROCESSING_INSTRUCTION, pi);
XML_LOCATION(ProcessingInstruction, XML_PROCESSING_INSTRUCTION, pi);

XML_PROCESSING_INSTRUCTION *xmlProcessingInstructionCreate(voString *value) {
    VO_ASSERT(xmlValueProcessingInstructionValueOk( value ));
    return xml::createCharacterData<XML_PROCESSING_INSTRUCTION>(xmlProcessingInstructionSort(),
                                                                value);
}

voString *xmlProcessingInstructionValue(XML_PROCESSING_INSTRUCTION *pi) {
    return vo::retained(VO_READ(pi)->value);
}

void xmlProcessingInstructionSetValue(XML_PROCESSING_INSTRUCTION **pi, voString *value) {
    VO_ASSERT_REF(pi);
    VO_ASSERT(xmlValueProcessingInstructionValueOk( value ));
    vo::assign(VO_EDIT(pi)->value, value);
}
