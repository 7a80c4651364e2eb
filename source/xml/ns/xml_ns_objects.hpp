// Objects from the outline of a namespace tree.
#pragma once

#include "source/xml/ns/xml_ns_factory.hpp"
#include "source/xml/outline/xml_read_ahead.hpp"

namespace xml {

/// Makes the objects of a namespace tree. It needs the objects of the plain tree that belong to
/// them, which the caller has made before. `part` is the outline that holds their namespaces. For
/// one thread at a time.
class NsObjectMaker : public NsFactory {
  public:
    using NsFactory::NsFactory;

    /// The vector for the items of a plain list; `number` is the record of the first item. The
    /// first `whole` items are made with everything below them.
    voVector *items(NsOutline &part, voVector *plain, uint64_t number, int64_t whole);

    /// The element for a plain one: with everything below it, or with its items left to be made on
    /// demand.
    XML_NS_ELEMENT *element(NsOutline &part, XML_ELEMENT *plain, uint64_t number, bool whole);

    ReadAhead ahead;

  private:
    void fill(NsOutline &part, XML_NS_ELEMENT *element, XML_ELEMENT *plain, uint64_t number);
    void open(XML_NS_ELEMENT *element, XML_ELEMENT *plain);

    vo::Vec<OpenList> opened;
};

/// The maker of a tree. The caller must hold its mutex, unless no other thread knows the tree yet.
NsObjectMaker &makerOf(NsShared *shared);

/// The maker of a tree, whose mutex is held as long as this object exists.
class LockedNsMaker {
  public:
    explicit LockedNsMaker(NsShared *shared) : lock(shared->mutex), maker(makerOf(shared)) {}
    NsObjectMaker *operator->() { return &maker; }

  private:
    std::lock_guard<std::mutex> lock;
    NsObjectMaker &maker;
};

} // namespace xml
