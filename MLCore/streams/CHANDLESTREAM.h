#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/streams/detail/CGLOBALSTREAM.h>

namespace MLCore {

/// A stream over a memory block that somebody else made or will take over (MLCore/platform/GlobalMemory.h). Its size is
/// at first that of the block; closing trims the block to the size.
///
///     CHANDLESTREAM stream;
///     stream.Open();
///     stream << "text";
///     stream.Close();
///     void* block = stream.Detach();  // 4 bytes, now the caller's
class MLCORE_API CHANDLESTREAM : public CGLOBALSTREAM {
public:
    /// Without a block; the first write makes one, which the stream owns.
    CHANDLESTREAM();
    /// Over the block `handle` (may be null). Its end frees the block only when `owns` is not 0. Growing may change the handle,
    /// and SetSize(0) frees the block, also of one that is not owned: GetHandle() tells.
    CHANDLESTREAM(void* handle, int owns);
    /// Unlocks the block, and frees it when it is owned.
    ~CHANDLESTREAM() override;

    void Open() override;
    /// Unlocks the block and gives it exactly the size of the stream; when the system refuses, as it does for an empty stream,
    /// the block keeps its capacity.
    void Close() override;

    /// The block, or null. Whoever owned it still does.
    [[nodiscard]] void* GetHandle() const;
    /// Hands the block to the caller, and leaves the stream without one. Null, and no change, while the stream is open.
    [[nodiscard]] void* Detach();
    /// The size; 0 when closed.
    [[nodiscard]] unsigned long long GetWritePosition() const;
};

}  // namespace MLCore
