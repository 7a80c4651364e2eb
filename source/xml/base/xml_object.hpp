// How an object type of this library is written; see source/vo/vo_object.hpp.
#pragma once

#include "source/vo/vo_object.hpp"
#include "source/xml/base/xml_module.hpp"

#define XML_OBJECT(Name, T, param)                                                                 \
    VO_OBJECT(xml##Name, T, xml___sort_##T, xml___##Name##FreeFunc, &xml___module, param)

/// For a type that never changes: all common operations but CreateFrom.
#define XML_CONSTANT_OBJECT(Name, T, param)                                                        \
    VO_CONSTANT_OBJECT(xml##Name, T, xml___sort_##T, xml___##Name##FreeFunc, &xml___module, param)

/// The four operations of an optional source location, the last field of every tree node.
#define XML_LOCATION(Name, T, param)                                                               \
    voParserLocation *xml##Name##Location(T *param) {                                              \
        return vo::retained(VO_READ(param)->location);                                             \
    }                                                                                              \
    int xml##Name##HasLocation(T *param) { return VO_READ(param)->location != nullptr; }           \
    void xml##Name##SetLocation(T **param, voParserLocation *loc) {                                \
        VO_ASSERT_REF(param);                                                                      \
        VO_ASSERT(loc);                                                                            \
        vo::assign(VO_EDIT(param)->location, loc);                                                 \
    }                                                                                              \
    void xml##Name##DelLocation(T **param) { vo::assign(VO_EDIT(param)->location, nullptr); }      \
    static_assert(true)
