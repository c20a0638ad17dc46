#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/streams/detail/CGLOBALSTREAM.h>

namespace MLCore {

/// A stream over a movable memory block (MLCore/platform/GlobalMemory.h) that another part of the program made or will
/// take over. At first the stream has the size of the block. Closing the stream trims the block to the stream's size.
///
///     CHANDLESTREAM stream;
///     stream.Open();
///     stream << "text";
///     stream.Close();
///     void* block = stream.Detach();  // 4 bytes, now the caller's
class MLCORE_API CHANDLESTREAM : public CGLOBALSTREAM {
public:
    /// Makes a stream without a block. The first write makes a block, which the stream owns.
    CHANDLESTREAM();
    /// Makes a stream over the block `handle` (may be null). The destructor frees the block only when `owns` is not 0.
    /// Writing may change the handle, and SetSize(0) frees the block, also one that the stream does not own: ask
    /// GetHandle() afterwards.
    CHANDLESTREAM(void* handle, int owns);
    /// Unlocks the block, and frees it when the stream owns it.
    ~CHANDLESTREAM() override;

    void Open() override;
    /// Unlocks the block and gives it exactly the size of the stream. Where the system refuses, as it does for an empty
    /// stream, the block keeps its capacity.
    void Close() override;

    /// The block, or null. The owner stays the same.
    [[nodiscard]] void* GetHandle() const;
    /// Hands the block to the caller, who then owns it, and leaves the stream without one. While the stream is open,
    /// returns null and changes nothing.
    [[nodiscard]] void* Detach();
    /// The size in bytes; 0 when closed.
    [[nodiscard]] unsigned long long GetWritePosition() const;
};

}  // namespace MLCore
