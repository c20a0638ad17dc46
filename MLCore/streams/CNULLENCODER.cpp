#include <MLCore/streams/CNULLENCODER.h>

namespace MLCore {

CNULLENCODER::~CNULLENCODER() = default;

std::string CNULLENCODER::Encode(const std::string& text) { return text; }

std::string CNULLENCODER::Decode(const std::string& text) { return text; }

}  // namespace MLCore
