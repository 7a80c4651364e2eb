#include "vo/vo_vector.h"

#include "source/vo/vo_array.hpp"
#include "source/vo/vo_compare.hpp"

#include <algorithm>

using namespace vo;

static void freeVector(voObj *obj) {
    voVector *vec = voVectorFrom(obj);
    for (int64_t i = 0; i < vec->length; ++i)
        release(vec->items()[i]);
}

constinit voSort vo___sort_voVector = {
    {nullptr, 1}, nullptr, "voVector", freeVector, compareContainers};
VO_OPERATIONS(voVector, voVector, vo___sort_voVector);

/// Opens a gap of `count` places before `index` and gives its first. What the gap is to hold must
/// have a holder other than the vector.
static voObj **openGap(voVector **vec, int64_t index, int64_t count) {
    int64_t length = (*vec)->length;
    VO_ASSERT(count <= mostItems<voVector> - length);
    voObj **items = resizeArray(vec, length + count)->items();
    std::copy_backward(items + index, items + length, items + length + count);
    return items + index;
}

voVector *voVectorCreate(void) { return createArray<voVector>(voVectorSort(), 0); }

voVector *voVectorCreateFrom(voVector *source) {
    VO_ASSERT(source);
    return copyArray<voVector>(voVectorSort(), source->items(), source->length, source->length);
}

int64_t voVectorLength(voVector *vec) { return VO_READ(vec)->length; }

voObj *voVectorObjAt(voVector *vec, int64_t index) {
    VO_ASSERT(vec);
    VO_ASSERT(index >= 0 && index < vec->length);
    return retained(vec->items()[index]);
}

int voVectorContainsOnly(voVector *vec, voSort *sort) {
    VO_ASSERT(vec);
    VO_ASSERT(sort);
    return std::all_of(vec->items(), vec->items() + vec->length,
                       [sort](voObj *obj) { return sortOf(obj) == sort; });
}

void voVectorSetObjAt(voVector **vec, int64_t index, voObj *obj) {
    VO_ASSERT_REF(vec);
    VO_ASSERT(index >= 0 && index < (*vec)->length);
    VO_ASSERT(obj);
    Ref held(retained(obj));
    release(std::exchange(resizeArray(vec, (*vec)->length)->items()[index], held.take()));
}

void voVectorInsertObj(voVector **vec, int64_t index, voObj *obj) {
    VO_ASSERT_REF(vec);
    VO_ASSERT(index >= 0 && index <= (*vec)->length);
    VO_ASSERT(obj);
    Ref held(retained(obj));
    *openGap(vec, index, 1) = held.take();
}

void voVectorInsert(voVector **vec, int64_t index, voVector *other) {
    VO_ASSERT_REF(vec);
    VO_ASSERT(index >= 0 && index <= (*vec)->length);
    VO_ASSERT(other);
    if (!other->length) return;
    Ref held(retained(other));
    voObj **gap = openGap(vec, index, other->length);
    std::transform(other->items(), other->items() + other->length, gap, retained<voObj>);
}

void voVectorAppendObj(voVector **vec, voObj *obj) {
    VO_ASSERT_REF(vec);
    VO_ASSERT(obj);
    Ref held(retained(obj));
    *openGap(vec, (*vec)->length, 1) = held.take();
}

void voVectorDelAt(voVector **vec, int64_t index) {
    VO_ASSERT_REF(vec);
    VO_ASSERT(index >= 0 && index < (*vec)->length);
    int64_t length = (*vec)->length;
    voObj **items = resizeArray(vec, length)->items();
    std::rotate(items + index, items + index + 1, items + length);
    resizeArray(vec, length - 1);
}

void voVectorClear(voVector **vec) {
    VO_ASSERT_REF(vec);
    resizeArray(vec, 0);
}

void voVectorPush(voVector **vec, voObj *obj) { voVectorAppendObj(vec, obj); }

voObj *voVectorPop(voVector **vec) {
    VO_ASSERT_REF(vec);
    VO_ASSERT((*vec)->length > 0);
    int64_t last = (*vec)->length - 1;
    voObj *obj = retained((*vec)->items()[last]);
    resizeArray(vec, last);
    return obj;
}
