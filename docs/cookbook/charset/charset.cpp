#include <iostream>
#include <voxml.hpp>

void write(voxml::document doc, voCharset charset) { // A copy: the caller's stays as it is.
    doc.set_charset(charset);
    const auto bytes = doc.encode();
    if (bytes)
        std::cout << bytes->view().size() << " bytes\n";
    else
        std::cout << bytes.error().message() << '\n';
}

int main() {
    const auto cafe = voxml::document::decode_file("cafe.xml").value();
    write(cafe, VO_CHARSET_UTF_8);
    write(cafe, VO_CHARSET_WINDOWS_1252);
    write(cafe, VO_CHARSET_ISO_8859_1); // Has no euro sign.
    return 0;
}
