#include "xml/xml_options.h"

#include "source/xml/base/xml_object.hpp"

#include <array>

namespace {

enum OptionId : size_t {
    optionFlags,
    optionDecodeCharsetFlags,
    optionDecodeNlfFlags,
    optionEncodeCharsetFlags,
    optionEncodeNlfFlags,
    optionCount
};

struct Option {
    int32_t isDefault;
    uint64_t value;
};

/// How flag words of one type are cleaned and written.
struct FlagType {
    uint64_t (*normalize)(uint64_t flags);
    voString *(*toString)(uint64_t flags);
    uint64_t (*fromString)(voString *string);
};

struct OptionType {
    const char *key;
    uint64_t initial;
    FlagType flags;
};

constexpr FlagType xmlFlags = {xmlFlagsNormalize, xmlFlagsToString, xmlFlagsFromString};
constexpr FlagType charsetFlags = {voCharsetFlagsNormalize, voCharsetFlagsToString,
                                   voCharsetFlagsFromString};
constexpr FlagType nlfFlags = {voNlfFlagsNormalize, voNlfFlagsToString, voNlfFlagsFromString};

/// By OptionId, which is also the order in a store.
constexpr OptionType types[] = {
    {"flags", 0, xmlFlags},
    {"decodeCharsetFlags", VO_CHARSET_FLAG_BOM, charsetFlags},
    {"decodeNlfFlags", VO_NLF_FLAGS_ALL, nlfFlags},
    {"encodeCharsetFlags", 0, charsetFlags},
    {"encodeNlfFlags", VO_NLF_FLAG_LF, nlfFlags},
};
static_assert(std::size(types) == optionCount);

} // namespace

struct XML_OPTIONS {
    voObj base;
    std::array<Option, optionCount> options;

    auto fields() { return std::tie(options); }
};

XML_OBJECT(Options, XML_OPTIONS, opt);

namespace {

uint64_t value(XML_OPTIONS *opt, OptionId id) { return VO_READ(opt)->options[id].value; }

int isDefault(XML_OPTIONS *opt, OptionId id) { return VO_READ(opt)->options[id].isDefault; }

void set(XML_OPTIONS **opt, OptionId id, uint64_t flags) {
    VO_EDIT(opt)->options[id] = {0, types[id].flags.normalize(flags)};
}

void reset(XML_OPTIONS **opt, OptionId id) { VO_EDIT(opt)->options[id] = {1, types[id].initial}; }

} // namespace

XML_OPTIONS *xmlOptionsCreate(void) {
    auto *opt = vo::create<XML_OPTIONS>(xmlOptionsSort());
    for (size_t id = 0; id < optionCount; id++)
        opt->options[id] = {1, types[id].initial};
    return opt;
}

XML_FLAGS xmlOptionsFlags(XML_OPTIONS *opt) { return value(opt, optionFlags); }
voCharsetFlags xmlOptionsDecodeCharsetFlags(XML_OPTIONS *opt) {
    return value(opt, optionDecodeCharsetFlags);
}
voNlfFlags xmlOptionsDecodeNlfFlags(XML_OPTIONS *opt) { return value(opt, optionDecodeNlfFlags); }
voCharsetFlags xmlOptionsEncodeCharsetFlags(XML_OPTIONS *opt) {
    return value(opt, optionEncodeCharsetFlags);
}
voNlfFlags xmlOptionsEncodeNlfFlags(XML_OPTIONS *opt) { return value(opt, optionEncodeNlfFlags); }

void xmlOptionsSetFlags(XML_OPTIONS **opt, XML_FLAGS flags) { set(opt, optionFlags, flags); }
void xmlOptionsSetDecodeCharsetFlags(XML_OPTIONS **opt, voCharsetFlags flags) {
    set(opt, optionDecodeCharsetFlags, flags);
}
void xmlOptionsSetDecodeNlfFlags(XML_OPTIONS **opt, voNlfFlags flags) {
    set(opt, optionDecodeNlfFlags, flags);
}
void xmlOptionsSetEncodeCharsetFlags(XML_OPTIONS **opt, voCharsetFlags flags) {
    set(opt, optionEncodeCharsetFlags, flags);
}
void xmlOptionsSetEncodeNlfFlags(XML_OPTIONS **opt, voNlfFlags flags) {
    set(opt, optionEncodeNlfFlags, flags);
}

int xmlOptionsFlagsDefault(XML_OPTIONS *opt) { return isDefault(opt, optionFlags); }
int xmlOptionsDecodeCharsetFlagsDefault(XML_OPTIONS *opt) {
    return isDefault(opt, optionDecodeCharsetFlags);
}
int xmlOptionsDecodeNlfFlagsDefault(XML_OPTIONS *opt) {
    return isDefault(opt, optionDecodeNlfFlags);
}
int xmlOptionsEncodeCharsetFlagsDefault(XML_OPTIONS *opt) {
    return isDefault(opt, optionEncodeCharsetFlags);
}
int xmlOptionsEncodeNlfFlagsDefault(XML_OPTIONS *opt) {
    return isDefault(opt, optionEncodeNlfFlags);
}

void xmlOptionsSetFlagsDefault(XML_OPTIONS **opt) { reset(opt, optionFlags); }
void xmlOptionsSetDecodeCharsetFlagsDefault(XML_OPTIONS **opt) {
    reset(opt, optionDecodeCharsetFlags);
}
void xmlOptionsSetDecodeNlfFlagsDefault(XML_OPTIONS **opt) { reset(opt, optionDecodeNlfFlags); }
void xmlOptionsSetEncodeCharsetFlagsDefault(XML_OPTIONS **opt) {
    reset(opt, optionEncodeCharsetFlags);
}
void xmlOptionsSetEncodeNlfFlagsDefault(XML_OPTIONS **opt) { reset(opt, optionEncodeNlfFlags); }

voStore *xmlOptionsStore(XML_OPTIONS *opt, int full) {
    VO_ASSERT(opt);
    voStore *store = voStoreCreate();
    for (size_t id = 0; id < optionCount; id++) {
        const Option &option = opt->options[id];
        if (option.isDefault && !full) continue;
        vo::Ref text(types[id].flags.toString(option.value));
        voStoreSetValueCstr(&store, types[id].key, -1, text);
    }
    return store;
}

XML_OPTIONS *xmlOptionsRestore(voStore *store) {
    VO_ASSERT(store);
    XML_OPTIONS *opt = xmlOptionsCreate();
    for (size_t id = 0; id < optionCount; id++) {
        vo::Ref text(voStoreValueCstr(store, types[id].key, -1));
        if (text) set(&opt, OptionId(id), types[id].flags.fromString(text));
    }
    return opt;
}
