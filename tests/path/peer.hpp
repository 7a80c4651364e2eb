// What libxml2 selects.
#pragma once

#include <libxml/parser.h>
#include <libxml/xpath.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace test {

/// A document as libxml2 reads it.
class Peer {
  public:
    explicit Peer(std::string_view xml);

    bool isRead() const { return document != nullptr; }
    /// Elements in document order, up to the one of that index.
    int64_t elements() const { return int64_t(all.size()); }

    /// The nodes that an expression selects from an element, by its index, or from the document,
    /// for -1: one text for each, which ends with its string value. None if it is an error.
    std::optional<std::vector<std::string>>
    select(const std::string &expression, int64_t from,
           const std::vector<std::pair<std::string, std::string>> &bindings) const;

  private:
    std::shared_ptr<xmlDoc> document;
    std::vector<xmlNode *> all;
};

/// A node as Peer shows it. Line ends and white space in attributes are shown as spaces, since
/// readers normalize them and trees keep them.
std::string shownNode(std::string_view kind, std::string_view name, std::string_view ns,
                      std::string text);

} // namespace test
