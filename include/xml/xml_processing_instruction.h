/** @file
 *  Processing instructions. */
#ifndef XML_XML_PROCESSING_INSTRUCTION_H
#define XML_XML_PROCESSING_INSTRUCTION_H

#include "vo/vo.h"

VO_BEGIN_DECLS

/** A processing instruction: <?value?>. The value holds the target, white space and the data. */
typedef struct XML_PROCESSING_INSTRUCTION XML_PROCESSING_INSTRUCTION;

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *xmlProcessingInstructionSort(void);
VO_API XML_PROCESSING_INSTRUCTION *xmlProcessingInstructionRetain(XML_PROCESSING_INSTRUCTION *obj);
VO_API void xmlProcessingInstructionRelease(XML_PROCESSING_INSTRUCTION *obj);
VO_API voObj *xmlProcessingInstructionObj(XML_PROCESSING_INSTRUCTION *obj);
VO_API XML_PROCESSING_INSTRUCTION *xmlProcessingInstructionFrom(voObj *obj);
VO_NEW voString *xmlProcessingInstructionToString(XML_PROCESSING_INSTRUCTION *obj);
VO_API int64_t xmlProcessingInstructionCompare(XML_PROCESSING_INSTRUCTION *objA,
                                               XML_PROCESSING_INSTRUCTION *objB);
VO_API int xmlProcessingInstructionEquals(XML_PROCESSING_INSTRUCTION *objA,
                                          XML_PROCESSING_INSTRUCTION *objB);
VO_NEW XML_PROCESSING_INSTRUCTION *
xmlProcessingInstructionCreateFrom(XML_PROCESSING_INSTRUCTION *source);
/** @} */

/** Makes a processing instruction without a location.
 *  @param value see xmlValueProcessingInstructionValueOk(). */
VO_NEW XML_PROCESSING_INSTRUCTION *xmlProcessingInstructionCreate(voString *value);

/** The text between the delimiters, as it was given. */
VO_NEW voString *xmlProcessingInstructionValue(XML_PROCESSING_INSTRUCTION *pi);

/** Replaces the text. @param value see xmlValueProcessingInstructionValueOk(). */
VO_API void xmlProcessingInstructionSetValue(XML_PROCESSING_INSTRUCTION **pi, voString *value);

/** @name Location
 *  Where the processing instruction begins in the decoded input, see XML_FLAG_DECODE_LOCATION; null
 *  when that was not recorded. @{ */
VO_NEW voParserLocation *xmlProcessingInstructionLocation(XML_PROCESSING_INSTRUCTION *pi);
VO_API int xmlProcessingInstructionHasLocation(XML_PROCESSING_INSTRUCTION *pi);
VO_API void xmlProcessingInstructionSetLocation(XML_PROCESSING_INSTRUCTION **pi,
                                                voParserLocation *loc);
VO_API void xmlProcessingInstructionDelLocation(XML_PROCESSING_INSTRUCTION **pi);
/** @} */

VO_END_DECLS

#endif
