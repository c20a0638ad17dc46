#include <MLCore/streams/CHANDLESTREAM.h>

namespace MLCore {

CHANDLESTREAM::CHANDLESTREAM() : CHANDLESTREAM(nullptr, 1) {}

CHANDLESTREAM::CHANDLESTREAM(void* handle, int owns) : CSTREAM(ReadWrite), CGLOBALSTREAM(handle, owns != 0) {}

CHANDLESTREAM::~CHANDLESTREAM() = default;

void CHANDLESTREAM::Open() {
    CGLOBALSTREAM::Open();
    Lend(typeid(CHANDLESTREAM));
}

void CHANDLESTREAM::Close() {
    if (IsOpen() == 0) {
        return;
    }
    CGLOBALSTREAM::Close();
    Block().Unlock(static_cast<std::size_t>(mCursor.GetSize()));
}

void* CHANDLESTREAM::GetHandle() const { return GetBlockHandle(); }

void* CHANDLESTREAM::Detach() {
    if (IsOpen() != 0) {
        return nullptr;
    }
    mCursor = STREAMCURSOR();
    return Block().Detach();
}

unsigned long long CHANDLESTREAM::GetWritePosition() const { return GetSize(); }

}  // namespace MLCore
