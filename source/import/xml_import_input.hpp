// From the bytes of a document to what Expat reads.
#pragma once

#include "source/vo/vo_object.hpp"
#include "source/xml/base/xml_piece.hpp"
#include "vo/vo.h"

namespace xml {

struct ImportInput {
    voCharset charset;          ///< Of the document.
    voCharset bytesIn;          ///< That of the bytes, with the byte order settled.
    vo::Ref<voBuffer> original; ///< Without a mark that is no character of `bytesIn`,
    int64_t skipped = 0;        ///< which takes so many bytes.
    vo::Ref<voBuffer> read;     ///< What Expat reads.

    /// Whether `read` is meant to be UTF-8. Else it is the original, and Expat finds out what is
    /// wrong in it or with the name of its character set.
    bool isUtf8 = true;

    Piece text() const { return pieceOf(read); }

    /// Whether Expat can read a character set other than UTF-8 by itself.
    bool isKnownToExpat() const;

    /// The same with the original to be read.
    ImportInput unconverted() const;

    /// Makes `read` the text up to where the original is ill-formed, so that Expat refuses it
    /// there.
    void endWhereIllFormed();

    /// The text in front of a place in `read`, as UTF-8.
    vo::Ref<voBuffer> textBefore(int64_t place) const;

    /// Where that place is in the whole original, in bytes.
    int64_t originalPlace(int64_t place) const;
};

ImportInput readImportInput(voBuffer *xml);

} // namespace xml
