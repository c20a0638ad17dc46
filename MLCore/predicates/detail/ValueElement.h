/// \file
/// Values in key streams.
#pragma once

#include <MLCore/values/CVALUE.h>

namespace MLCore {

class CKEYREADER;
class CKEYWRITER;

/// Writes an element with the attributes "type" and "value", without them for an Unknown value. Fails with
/// kErrValueType (138) before anything is written for a value that could not be read back: a Guid, an Object, an
/// invalid date or time. Fails with the same code for a text that the writer cannot write.
void WriteValueElement(CKEYWRITER& writer, const char* element, const CVALUE& value);
/// Fails with kErrValueType for an unknown type, and for a text that is not a value of the type.
[[nodiscard]] CVALUE ReadValueElement(CKEYREADER& reader, const char* element);

}  // namespace MLCore
