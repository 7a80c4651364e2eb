// Changes a document copy-on-write: the decoded one stays as it is.
#include "ref.hpp"

int main() {
    Session session;
    Ref options(xmlOptionsCreate());
    Ref result(xmlDocumentDecode(bytes("<?xml version='1.0'?><menu><dish name='Soup'/></menu>"),
                                 options, nullptr));
    Ref doc(xmlDecodeResultDocument(result));
    if (!doc) return 1;

    Ref items(xmlDocumentItems(doc));
    Ref menu(xmlItemsItemElementAt(items, 0));
    Ref dish(xmlElementCreate(str("dish")));
    xmlElementSetAttributeNameTextEscape(&dish, str("name"), str("Bread & butter"));
    xmlElementAppendItemElement(&menu, dish);
    xmlItemsSetItemElementAt(&items, 0, menu);
    Ref changed(xmlDocumentRetain(doc));
    xmlDocumentSetItems(&changed, items);

    print(Ref(xmlDocumentTryEncode(doc, options)));     // <menu><dish name="Soup"/></menu>
    print(Ref(xmlDocumentTryEncode(changed, options))); // ... <dish name="Bread &amp; butter"/>
}
