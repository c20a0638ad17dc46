#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/streams/detail/CURSORSTREAM.h>
#include <MLCore/streams/detail/GLOBALBLOCK.h>

namespace MLCore {

/// The base of CBUFFERSTREAM and CHANDLESTREAM: data in a movable memory block that grows to exactly the size needed.
/// All the same, growing by small writes takes time linear in the bytes written.
///
/// Without memory an operation fails with kErrNull (-100) and leaves the stream unchanged.
class MLCORE_API CGLOBALSTREAM : public CURSORSTREAM {
public:
    ~CGLOBALSTREAM() override;

    using COSTREAM::SetValue;
    using CURSORSTREAM::GetValue;
    /// Opens the stream at its first byte; the size is kept. Fails with kErrNull when the system does not lock the
    /// block.
    void Open() override;
    long GetValue(void* buffer, long count) override;
    /// The raw write: overwrites from the position on, and extends the stream.
    void SetValue(const void* buffer, long count) override;

    void SetSize(unsigned long long size) override;

    /// The size of the memory block, open or closed.
    [[nodiscard]] unsigned long long GetCapacity() const noexcept { return Block().GetSize(); }

protected:
    CGLOBALSTREAM();
    CGLOBALSTREAM(void* handle, bool owns);

    /// The block, with its used size brought up to date.
    [[nodiscard]] GLOBALBLOCK& Block() const noexcept {
        mBlock.Extend(static_cast<std::size_t>(mCursor.GetSize()));
        return mBlock;
    }

    /// The block's handle. For that the block gets exactly its size, and may move.
    [[nodiscard]] void* GetBlockHandle() const;

private:
    struct AREAUPDATE;

    void SetCapacity(unsigned long long capacity);
    void SetArea() const noexcept;

    mutable GLOBALBLOCK mBlock;
};

}  // namespace MLCore
