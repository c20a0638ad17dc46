/// Values in key streams.
#pragma once

#include <MLCore/values/CVALUE.h>

namespace MLCore {

class CKEYREADER;
class CKEYWRITER;

/// An element with the attributes "type" and "value"; without them for an Unknown value. Fails with 138 for what has no form
/// that is read back, before anything is written, and for a text that the writer cannot write.
void WriteValueElement(CKEYWRITER& writer, const char* element, const CVALUE& value);
/// Fails with 138 for an unknown type, and for a text that is no value of it.
[[nodiscard]] CVALUE ReadValueElement(CKEYREADER& reader, const char* element);

}  // namespace MLCore
