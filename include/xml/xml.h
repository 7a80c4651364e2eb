/** @file
 *  Everything of the XML library. */
#ifndef XML_XML_H
#define XML_XML_H

#include "xml/xml_cdata.h"
#include "xml/xml_comment.h"
#include "xml/xml_decode_error.h"
#include "xml/xml_decode_error_code.h"
#include "xml/xml_decode_result.h"
#include "xml/xml_flags.h"
#include "xml/xml_item_type.h"
#include "xml/xml_module.h"
#include "xml/xml_ns_decode_error.h"
#include "xml/xml_ns_decode_error_code.h"
#include "xml/xml_ns_decode_result.h"
#include "xml/xml_options.h"
#include "xml/xml_processing_instruction.h"
#include "xml/xml_value.h"

#endif
