// Reads a document with prefixes, asks for an attribute by namespace and name, adds an element in
// a namespace of its own and writes the document back.
#include "vo/vo.h"
#include "xml/xml.h"

#include <cstdio>
#include <string_view>

// Owns a reference to an object of any type. Setters take its address.
template <class T> struct Ref {
    explicit Ref(T *adopted) : object(adopted) {}
    Ref(const Ref &) = delete;
    ~Ref() {
        if (object) voObjRelease(reinterpret_cast<voObj *>(object));
    }
    operator T *() const { return object; }
    T **operator&() { return &object; }

  private:
    T *object;
};

static Ref<voString> str(const char *utf8) { return Ref(voStringTryCreateFromUtf8(utf8, -1)); }

static void print(voBuffer *utf8) {
    std::printf("%.*s\n", int(voBufferLength(utf8)),
                reinterpret_cast<const char *>(voBufferBacking(utf8)));
}

int main() {
    constexpr std::string_view text = "<?xml version='1.0'?>"
                                      "<entry xmlns='http://www.w3.org/2005/Atom'"
                                      " xmlns:r='urn:example:reading' r:minutes='12'/>";
    voModuleStartup(xmlModule());
    {
        Ref xml(voBufferCreateFromBytesCopy(text.data(), int64_t(text.size())));
        Ref options(xmlOptionsCreate());
        Ref result(xmlDocumentDecode(xml, options, nullptr));
        Ref plain(xmlDecodeResultDocument(result));
        Ref nsResult(xmlNsDocumentTryDecode(plain));
        Ref doc(xmlNsDecodeResultDocument(nsResult));

        Ref items(xmlNsDocumentItems(doc));
        Ref entry(xmlNsItemsItemElementAt(items, 0));
        Ref minutes(xmlNsElementAttributeTextTryUnescape(entry, str("minutes"),
                                                         str("urn:example:reading")));
        if (minutes) print(Ref(voStringTryToUtf8(minutes)));

        Ref mark(xmlNsElementCreate(str("done"), str("urn:example:progress")));
        xmlNsElementAppendItemElement(&entry, mark);
        xmlNsItemsSetItemElementAt(&items, 0, entry);
        xmlNsDocumentSetItems(&doc, items);

        Ref changed(xmlNsDocumentEncode(doc));
        print(Ref(xmlDocumentTryEncode(changed, options)));
    }
    voModuleShutdown(xmlModule());
}
