#include "Argument.h"

#include "Encoding.h"

#include <access/detoast.h>
#include <fmgr.h>
#if PG_VERSION_NUM >= 160000
#include <varatt.h>
#endif

static const Payload tooLong = {NULL, 0, true};

Payload payloadOfBytes(Datum argument) {
    const Size size = toast_raw_datum_size(argument) - VARHDRSZ;
    if (size > payloadLimit) {
        return tooLong;
    }
    const struct varlena* const value = PG_DETOAST_DATUM_PACKED(argument);
    const Payload payload = {VARDATA_ANY(value), (int)size, false};
    return payload;
}

Payload payloadOfText(Datum argument) {
    const Payload stored = payloadOfBytes(argument);
    if (stored.isTooLong || isServerUTF8(stored.bytes, stored.size)) {
        return stored;
    }
    StringInfo converted = toUTF8(stored.bytes, stored.size);
    const Payload payload = {converted->data, converted->len, false};
    return payload.size > payloadLimit ? tooLong : payload;
}
