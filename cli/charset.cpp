#include "charset.hpp"

#include "closest.hpp"
#include "wrap.hpp"

#include <algorithm>
#include <iterator>
#include <vector>

namespace tool {

static std::vector<std::string> aliasesOf(voCharset charset) {
    Ref aliases(voCharsetAliases(charset));
    std::vector<std::string> names;
    for (int64_t i = 0; i < voVectorLength(aliases); ++i)
        names.push_back(take(voStringFrom(voVectorObjAt(aliases, i))));
    return names;
}

voCharset charsetNamed(std::string_view name) {
    const voCharset charset = voCharsetFromIanaName(makeString(name));
    return VO_CHARSET_OK(charset) ? charset : -1;
}

voCharset closestCharset(std::string_view name) {
    std::vector<std::string> names;
    std::vector<voCharset> owners;
    for (voCharset charset = 0; VO_CHARSET_OK(charset); ++charset) {
        std::vector<std::string> known = aliasesOf(charset);
        known.push_back(charsetName(charset));
        owners.insert(owners.end(), known.size(), charset);
        std::ranges::move(known, std::back_inserter(names));
    }
    const std::string *found = closest(name, names);
    return found ? owners[static_cast<size_t>(found - names.data())] : -1;
}

std::string charsetName(voCharset charset) { return take(voCharsetToIanaName(charset)); }

std::string charsetTable(size_t width) {
    constexpr size_t idWidth = 3, nameWidth = 14, aliasColumn = idWidth + 2 + nameWidth;
    std::string table;
    for (voCharset charset = 0; VO_CHARSET_OK(charset); ++charset) {
        const std::string id = std::to_string(charset);
        std::string line = std::string(idWidth - id.size(), ' ') + id + "  " + charsetName(charset);
        std::string aliases;
        for (const std::string &alias : aliasesOf(charset))
            aliases.append(aliases.empty() ? "" : ", ").append(alias);
        if (!aliases.empty() && line.size() < aliasColumn) line.resize(aliasColumn, ' ');
        table += line + wrapped(aliases, {line.size(), aliasColumn, width}) + "\n";
    }
    return table;
}

} // namespace tool
