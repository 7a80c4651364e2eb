#include "tests/support.hpp"
#include "xml/xml_options.h"

namespace {

struct Option {
    const char *key;
    uint64_t initial;
    uint64_t everyFlag;
    uint64_t (*get)(XML_OPTIONS *);
    void (*set)(XML_OPTIONS **, uint64_t);
    int (*isDefault)(XML_OPTIONS *);
    void (*reset)(XML_OPTIONS **);
};

constexpr Option options[] = {
    {"flags", 0, 3, xmlOptionsFlags, xmlOptionsSetFlags, xmlOptionsFlagsDefault,
     xmlOptionsSetFlagsDefault},
    {"decodeCharsetFlags", 1, 3, xmlOptionsDecodeCharsetFlags, xmlOptionsSetDecodeCharsetFlags,
     xmlOptionsDecodeCharsetFlagsDefault, xmlOptionsSetDecodeCharsetFlagsDefault},
    {"decodeNlfFlags", 255, 255, xmlOptionsDecodeNlfFlags, xmlOptionsSetDecodeNlfFlags,
     xmlOptionsDecodeNlfFlagsDefault, xmlOptionsSetDecodeNlfFlagsDefault},
    {"encodeCharsetFlags", 0, 3, xmlOptionsEncodeCharsetFlags, xmlOptionsSetEncodeCharsetFlags,
     xmlOptionsEncodeCharsetFlagsDefault, xmlOptionsSetEncodeCharsetFlagsDefault},
    {"encodeNlfFlags", 1, 255, xmlOptionsEncodeNlfFlags, xmlOptionsSetEncodeNlfFlags,
     xmlOptionsEncodeNlfFlagsDefault, xmlOptionsSetEncodeNlfFlagsDefault},
};

Ref<voString> stored(voStore *store, const Option &option) {
    return Ref(voStoreValueCstr(store, option.key, -1));
}

/// All options set to what is not their default.
Ref<XML_OPTIONS> changed() {
    Ref opt(xmlOptionsCreate());
    for (const Option &option : options)
        option.set(opt.edit(), option.initial ^ 3);
    return opt;
}

} // namespace

TEST(Options, AreSetAndResetOneByOne) {
    const Ref fresh(xmlOptionsCreate());
    for (const Option &option : options) {
        SCOPED_TRACE(option.key);
        Ref opt(xmlOptionsRetain(fresh));
        option.set(opt.edit(), ~uint64_t{0});
        for (const Option &other : options) {
            EXPECT_EQ(other.isDefault(opt), &other != &option) << other.key;
            EXPECT_EQ(other.get(opt), &other == &option ? option.everyFlag : other.initial);
            EXPECT_EQ(other.get(fresh), other.initial) << "shared options changed";
        }
        option.reset(opt.edit());
        EXPECT_EQ(option.get(opt), option.initial);
        EXPECT_EQ(option.isDefault(opt), 1);
    }
}

TEST(Options, StoreWhatWasSetOrEverything) {
    for (const Option &option : options) {
        SCOPED_TRACE(option.key);
        Ref opt(xmlOptionsCreate());
        EXPECT_EQ(voStoreLength(Ref(xmlOptionsStore(opt, 0))), 0);
        option.set(opt.edit(), option.initial); // setting the default counts
        Ref compact(xmlOptionsStore(opt, 0));
        EXPECT_EQ(voStoreLength(compact), 1);
        EXPECT_TRUE(stored(compact, option));
        Ref full(xmlOptionsStore(opt, 2));
        EXPECT_EQ(voStoreLength(full), 5);
    }
}

TEST(Options, ComeBackFromAStore) {
    for (int full : {0, 1}) {
        for (const Ref<XML_OPTIONS> &opt :
             {Ref(xmlOptionsCreate()), changed(), Ref(xmlOptionsCreateFrom(changed()))}) {
            Ref restored(xmlOptionsRestore(Ref(xmlOptionsStore(opt, full))));
            for (const Option &option : options) {
                SCOPED_TRACE(option.key);
                EXPECT_EQ(option.get(restored), option.get(opt));
                EXPECT_EQ(option.isDefault(restored), !full && option.isDefault(opt));
            }
        }
    }
}

TEST(Options, IgnoreWhatTheyDoNotKnowInAStore) {
    Ref store(voStoreCreate());
    voStoreSetValueCstr(store.edit(), "encodeNlfFlags", -1, test::str("VO_NLF_FLAG_CR|strange"));
    voStoreSetValueCstr(store.edit(), "colour", -1, test::str("red"));
    voStoreSetStoreCstr(store.edit(), "flags", -1, Ref(voStoreCreate()));
    Ref opt(xmlOptionsRestore(store));
    EXPECT_EQ(xmlOptionsEncodeNlfFlags(opt), VO_NLF_FLAG_CR);
    EXPECT_EQ(xmlOptionsFlagsDefault(opt), 1);
}
