#include "source/vo/vo_names.hpp"

#include "source/vo/vo_table.hpp"
#include "vo/vo_string.h"

#include <algorithm>

namespace vo {

const uint64_t *Names::find(voString *name) const {
    int64_t index = names->find(name);
    return index < 0 ? nullptr : vo::words(words) + index;
}

voString *Names::nameOf(uint64_t word) const {
    uint64_t *begin = vo::words(words);
    uint64_t *end = begin + wordCount(words);
    uint64_t *found = std::find(begin, end, word);
    return found == end ? nullptr : retained(names->key(found - begin));
}

void Names::set(const char *name, int64_t length, uint64_t word) {
    Ref key(voStringCreateFromCstr(name, length));
    int64_t count = wordCount(words);
    int64_t known = names->find(key);
    resizeWords(&words, known < 0 ? count + 1 : count)[known < 0 ? count : known] = word;
    if (known < 0) voDictSetStringKey(&names, key, voStringObj(key));
}

} // namespace vo
