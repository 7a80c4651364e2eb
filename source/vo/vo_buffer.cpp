#include "vo/vo_buffer.h"

#include "source/vo/vo_array.hpp"

#include <algorithm>

using namespace vo;

static int64_t compareBuffers(voObj *objA, voObj *objB) {
    voBuffer *a = voBufferFrom(objA);
    voBuffer *b = voBufferFrom(objB);
    int order = std::memcmp(a->items(), b->items(), size_t(std::min(a->length, b->length)));
    return order ? order : a->length - b->length;
}

constinit voSort vo___sort_voBuffer = {{nullptr, 1}, nullptr, "voBuffer", nullptr, compareBuffers};
VO_OPERATIONS(voBuffer, voBuffer, vo___sort_voBuffer);

voBuffer *voBufferCreate(void) { return createArray<voBuffer>(voBufferSort(), 0); }

voBuffer *voBufferCreateFrom(voBuffer *source) {
    VO_ASSERT(source);
    return voBufferCreateFromBytesCopy(source->items(), source->length);
}

voBuffer *voBufferCreateFromBytesCopy(const void *bytes, int64_t count) {
    VO_ASSERT(count >= 0);
    VO_ASSERT(bytes || !count);
    VO_ASSERT(count <= mostItems<voBuffer>);
    return copyArray<voBuffer>(voBufferSort(), static_cast<const uint8_t *>(bytes), count, count);
}

const uint8_t *voBufferBacking(voBuffer *buffer) { return VO_READ(buffer)->items(); }

int64_t voBufferLength(voBuffer *buffer) { return VO_READ(buffer)->length; }

void voBufferDelOuter(voBuffer **buffer, int64_t offset, int64_t count) {
    VO_ASSERT_REF(buffer);
    VO_ASSERT(offset >= 0 && offset <= (*buffer)->length);
    VO_ASSERT(count >= 0 && count <= (*buffer)->length - offset);
    keepRange(buffer, offset, count);
}
