// Changes a document copy-on-write: the decoded one stays as it is.
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

static void print(XML_DOCUMENT *doc, XML_OPTIONS *options) {
    Ref xml(xmlDocumentTryEncode(doc, options));
    std::printf("%.*s\n", int(voBufferLength(xml)),
                reinterpret_cast<const char *>(voBufferBacking(xml)));
}

int main() {
    voModuleStartup(xmlModule());
    {
        constexpr std::string_view text = "<?xml version='1.0'?><menu><dish name='Soup'/></menu>";
        Ref xml(voBufferCreateFromBytesCopy(text.data(), int64_t(text.size())));
        Ref options(xmlOptionsCreate());
        Ref result(xmlDocumentDecode(xml, options, nullptr));
        Ref doc(xmlDecodeResultDocument(result));

        Ref changed(xmlDocumentRetain(doc));
        Ref items(xmlDocumentItems(changed));
        Ref menu(xmlItemsItemElementAt(items, 0));
        Ref dish(xmlElementCreate(str("dish")));
        xmlElementSetAttributeNameTextEscape(&dish, str("name"), str("Bread & butter"));
        xmlElementAppendItemElement(&menu, dish);
        xmlItemsSetItemElementAt(&items, 0, menu);
        xmlDocumentSetItems(&changed, items);

        print(doc, options);
        print(changed, options);
    }
    voModuleShutdown(xmlModule());
}
