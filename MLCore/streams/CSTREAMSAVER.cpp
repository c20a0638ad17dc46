#include <MLCore/streams/CSTREAMSAVER.h>

#include <MLCore/streams/CRANDOMSTREAM.h>

namespace MLCore {

CSTREAMSAVER::CSTREAMSAVER(CRANDOMSTREAM& stream) : mStream(&stream), mPosition(stream.GetPosition()) {}

CSTREAMSAVER::~CSTREAMSAVER() {
    try {
        Restore();
    } catch (...) {
        // A stream that cannot go back stays where it is: a destructor must not throw.
    }
}

void CSTREAMSAVER::Restore() {
    if (mStream != nullptr) {
        mStream->SetPosition(mPosition);
    }
}

void CSTREAMSAVER::Reset() noexcept { mStream = nullptr; }

}  // namespace MLCore
