/// \file
/// The one way in which values are written as text: by operator<<, in dumps, in outlines and in query text.
#pragma once

#include <MLCore/platform/Export.h>

#include <string>

namespace MLCore {

class CVALUE;

/// Appends the value's text: "Null" for Unknown; a number in decimal; a Bool as 1 or 0; a Date as CDATE::ToStringLong()
/// and a DateTime as CDATETIME::ToStringXML() write it; a Time as "CTIME = 07:05:09 CTIMESPAN = 7:05:09"; a String as
/// it is. Guid and Object have no text and append "CVALUEINCONNU". Nothing depends on the locale.
///
/// With `quoted` a String stands between "'", and each "'" inside it is written twice. The other types are not quoted.
MLCORE_API void AppendValueText(std::string& out, const CVALUE& value, bool quoted);

}  // namespace MLCore
