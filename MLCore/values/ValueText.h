/// The one way in which values are written as text: by their output, in dumps, in outlines and in query text.
#pragma once

#include <MLCore/platform/Export.h>

#include <string>

namespace MLCore {

class CVALUE;

/// Appends the value's text: "Null"; a number in decimal; a Bool as 1 or 0; a Date as CDATE::ToStringLong(), a DateTime as
/// CDATETIME::ToStringXML() writes it; a Time as "CTIME = 07:05:09 CTIMESPAN = 7:05:09"; a String as it is. Guid and Object
/// have no text and append "CVALUEINCONNU". Nothing depends on the locale.
///
/// `quoted` encloses a String, and nothing else, in "'", with each "'" inside written twice.
MLCORE_API void AppendValueText(std::string& out, const CVALUE& value, bool quoted);

}  // namespace MLCore
