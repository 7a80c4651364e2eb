#include "vo/vo_message.h"

#include "source/vo/vo_format.hpp"
#include "source/vo/vo_object.hpp"

#include <cstdarg>

using namespace vo;

struct voMessage {
    voObj base;
    int64_t kind;
    voParserLocation *location;
    voString *text;

    auto fields() { return std::tie(kind, location, text); }
};

static int64_t compareMessages(voObj *objA, voObj *objB) {
    voMessage *a = voMessageFrom(objA);
    voMessage *b = voMessageFrom(objB);
    if (a->kind != b->kind) return a->kind < b->kind ? -1 : 1;
    if (int64_t order = voObjCompare(obj(a->location), obj(b->location))) return order;
    return voObjCompare(obj(a->text), obj(b->text));
}

static const char *kindPrefix(int64_t kind) {
    switch (kind) {
    case VO_MESSAGE_NOTE:
        return "note: ";
    case VO_MESSAGE_WARNING:
        return "warning: ";
    case VO_MESSAGE_ERROR:
        return "error: ";
    default:
        return "";
    }
}

static voString *messageToString(voObj *obj) {
    voMessage *message = voMessageFrom(obj);
    Ref str(voStringCreate());
    if (message->location)
        voStringAppendFormatCstr(str.edit(), "%~s: ", -1,
                                 voParserLocationToString(message->location));
    voStringAppendCstr(str.edit(), kindPrefix(message->kind), -1);
    voStringAppend(str.edit(), message->text);
    return str.take();
}

VO_OBJECT(voMessage, voMessage, vo___sort_voMessage, vo___MessageFreeFunc, nullptr, message,
          compareMessages, messageToString);

voMessage *voMessageCreateFormatCstr(int64_t kind, voParserLocation *optionalLocation,
                                     const char *format, int64_t length, ...) {
    auto *message = create<voMessage>(voMessageSort());
    message->kind = kind;
    message->location = retained(optionalLocation);
    message->text = voStringCreate();
    va_list args;
    va_start(args, length);
    appendFormat(&message->text, format, length, args);
    va_end(args);
    return message;
}

int64_t voMessageKind(voMessage *message) { return VO_READ(message)->kind; }

voParserLocation *voMessageLocation(voMessage *message) {
    return retained(VO_READ(message)->location);
}

voString *voMessageText(voMessage *message) { return retained(VO_READ(message)->text); }
