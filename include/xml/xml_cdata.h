/** @file
 *  CDATA sections: characters that are written as they are, without escaping. */
#ifndef XML_XML_CDATA_H
#define XML_XML_CDATA_H

#include "vo/vo.h"

VO_BEGIN_DECLS

/** A CDATA section: <![CDATA[value]]>. */
typedef struct XML_CDATA XML_CDATA;

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *xmlCdataSort(void);
VO_API XML_CDATA *xmlCdataRetain(XML_CDATA *obj);
VO_API void xmlCdataRelease(XML_CDATA *obj);
VO_API voObj *xmlCdataObj(XML_CDATA *obj);
VO_API XML_CDATA *xmlCdataFrom(voObj *obj);
VO_NEW voString *xmlCdataToString(XML_CDATA *obj);
VO_API int64_t xmlCdataCompare(XML_CDATA *objA, XML_CDATA *objB);
VO_API int xmlCdataEquals(XML_CDATA *objA, XML_CDATA *objB);
VO_NEW XML_CDATA *xmlCdataCreateFrom(XML_CDATA *source);
/** @} */

/** Makes a CDATA section without a location. @param value see xmlValueCdataOk(). */
VO_NEW XML_CDATA *xmlCdataCreate(voString *value);

/** The text between the delimiters, as it was given. */
VO_NEW voString *xmlCdataValue(XML_CDATA *cdata);

/** Replaces the text. @param value see xmlValueCdataOk(). */
VO_API void xmlCdataSetValue(XML_CDATA **cdata, voString *value);

/** @name Location
 *  Where the CDATA section begins in the decoded input, see XML_FLAG_DECODE_LOCATION; null
 *  when that was not recorded. @{ */
VO_NEW voParserLocation *xmlCdataLocation(XML_CDATA *cdata);
VO_API int xmlCdataHasLocation(XML_CDATA *cdata);
VO_API void xmlCdataSetLocation(XML_CDATA **cdata, voParserLocation *loc);
VO_API void xmlCdataDelLocation(XML_CDATA **cdata);
/** @} */

VO_END_DECLS

#endif
