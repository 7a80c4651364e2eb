// Reads a document with prefixes, asks for an attribute by namespace and name, adds an element in
// a namespace of its own and writes the document back.
#include "ref.hpp"

int main() {
    Session session;
    Ref options(xmlOptionsCreate());
    Ref result(xmlDocumentDecode(bytes("<?xml version='1.0'?>"
                                       "<entry xmlns='http://www.w3.org/2005/Atom'"
                                       " xmlns:r='urn:example:reading' r:minutes='12'/>"),
                                 options, nullptr));
    Ref plain(xmlDecodeResultDocument(result));
    if (!plain) return 1;
    Ref nsResult(xmlNsDocumentTryDecode(plain));
    Ref doc(xmlNsDecodeResultDocument(nsResult));
    if (!doc) return 1;

    Ref items(xmlNsDocumentItems(doc));
    Ref entry(xmlNsItemsItemElementAt(items, 0));
    Ref minutes(
        xmlNsElementAttributeTextTryUnescape(entry, str("minutes"), str("urn:example:reading")));
    if (minutes) print(Ref(voStringTryToUtf8(minutes)));

    Ref mark(xmlNsElementCreate(str("done"), str("urn:example:progress")));
    xmlNsElementAppendItemElement(&entry, mark);
    xmlNsItemsSetItemElementAt(&items, 0, entry);
    xmlNsDocumentSetItems(&doc, items);

    Ref changed(xmlNsDocumentEncode(doc));
    print(Ref(xmlDocumentTryEncode(changed, options)));
}
