#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/streams/detail/CURSORSTREAM.h>
#include <MLCore/streams/detail/GLOBALBLOCK.h>

namespace MLCore {

/// What CBUFFERSTREAM and CHANDLESTREAM share: data in a movable memory block that grows to exactly the size needed. The
/// growth by small writes is linear in the bytes written all the same.
///
/// Without memory an operation fails with -100 and leaves the stream as it was.
class MLCORE_API CGLOBALSTREAM : public CURSORSTREAM {
public:
    ~CGLOBALSTREAM() override;

    using COSTREAM::SetValue;
    using CURSORSTREAM::GetValue;
    /// At the first byte, with the size kept. Fails with -100 when the system does not lock the block.
    void Open() override;
    long GetValue(void* buffer, long count) override;
    /// Overwrites from the position on, or extends.
    void SetValue(const void* buffer, long count) override;

    void SetSize(unsigned long long size) override;

    /// The size of the memory block, open or closed.
    [[nodiscard]] unsigned long long GetCapacity() const noexcept { return Block().GetSize(); }

protected:
    CGLOBALSTREAM();
    CGLOBALSTREAM(void* handle, bool owns);

    /// The block, told of what was written to its room.
    [[nodiscard]] GLOBALBLOCK& Block() const noexcept {
        mBlock.Extend(static_cast<std::size_t>(mCursor.GetSize()));
        return mBlock;
    }

    /// The block's handle. The block gets its told size for it, and may move.
    [[nodiscard]] void* GetBlockHandle() const;

private:
    struct AREAUPDATE;

    void SetCapacity(unsigned long long capacity);
    void SetArea() const noexcept;

    mutable GLOBALBLOCK mBlock;
};

}  // namespace MLCore
