#include <MLCore/crypto/CPASSWORD.h>

#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/FailureChecks.h>
#include <MLCore/platform/RandomBytes.h>
#include <MLCore/platform/WideText.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <numeric>
#include <string_view>
#include <utility>
#include <vector>

namespace MLCore {

namespace {

constexpr std::string_view kAlphabet = "ABCDEFGHJKLMNPQRSTWXYZabcdefgijkmnopqrstwxyz123456789*$-+?_&=!%{}/";
constexpr std::array<std::string_view, 4> kClasses = {"ABCDEFGHJKLMNPQRSTWXYZ", "abcdefgijkmnopqrstwxyz", "123456789",
                                                      "*$-+?_&=!%{}/"};
constexpr short kLeastOfAllClasses = static_cast<short>(kClasses.size());

constexpr std::size_t kLongestText =
    std::numeric_limits<std::int32_t>::max() / platform::kSealBlockSize * platform::kSealBlockSize - 1;

/// Wipes memory at the end of a block, however it is left.
class WIPER {
public:
    WIPER(void* memory, std::size_t size) noexcept : mMemory(memory), mSize(size) {}
    ~WIPER() { platform::WipeMemory(mMemory, mSize); }
    WIPER(const WIPER&) = delete;
    WIPER& operator=(const WIPER&) = delete;

private:
    void* mMemory;
    std::size_t mSize;
};

// Texts of failures. They never say anything of a content, nor how long it is.

/// `isDone` is what a function of the platform has just returned.
void RequireSystem(bool isDone, const char* text) {
    if (!isDone) {
        FailWithLastError(text);
    }
}

constexpr const char* kNotSealed = "the system did not seal a password";

void RequireMemory(const void* memory) { Require(memory != nullptr, kErrNull, "no memory for a secret"); }

void RequireAllClasses(short length) {
    Require(length >= kLeastOfAllClasses, kErrInvalidArgument, "a password of ", length,
            " characters asked for, wanted ", kLeastOfAllClasses, " or more");
}

void FillRandom(void* buffer, std::size_t size) {
    RequireSystem(platform::RandomBytes(buffer, size), "the system gave no random bytes");
}

void SeedRand() {
    std::array<unsigned char, 4> seed{};
    const WIPER wiper(seed.data(), seed.size());
    FillRandom(seed.data(), seed.size());
    std::srand(std::bit_cast<std::uint32_t>(seed));
}

/// A number below `count`, not evenly drawn: that is how these passwords are made.
std::size_t RandBelow(std::size_t count) { return static_cast<std::size_t>(std::rand()) % count; }

char RandOf(std::string_view characters) { return characters[RandBelow(characters.size())]; }

/// A different position below `length` for each class.
std::array<short, kClasses.size()> RandPositions(short length) {
    std::vector<short> left(static_cast<std::size_t>(length));
    const WIPER wiper(left.data(), left.size() * sizeof(short));
    std::iota(left.begin(), left.end(), short{0});
    std::array<short, kClasses.size()> positions{};
    for (short& position : positions) {
        const auto chosen = left.begin() + static_cast<std::ptrdiff_t>(RandBelow(left.size()));
        position = *chosen;
        left.erase(chosen);
    }
    return positions;
}

/// Characters of the alphabet, evenly drawn from the system's random bytes.
class CHARACTERSOURCE {
public:
    CHARACTERSOURCE() = default;
    ~CHARACTERSOURCE() { platform::WipeMemory(mBytes.data(), mBytes.size()); }
    CHARACTERSOURCE(const CHARACTERSOURCE&) = delete;
    CHARACTERSOURCE& operator=(const CHARACTERSOURCE&) = delete;

    char Next() {
        for (;;) {
            const std::size_t byte = NextByte();
            if (byte < kEvenBytes) {
                return kAlphabet[byte % kAlphabet.size()];
            }
        }
    }

private:
    /// Byte values below this fall on all characters equally often.
    static constexpr std::size_t kEvenBytes = 256 / kAlphabet.size() * kAlphabet.size();
    /// The longest password needs about 170 blocks; no random source comes near this.
    static constexpr int kMostBlocks = 20000;

    unsigned char NextByte() {
        if (mNext == mBytes.size()) {
            Require(++mBlocks <= kMostBlocks, kErrRuntime, "the system's random bytes keep repeating themselves");
            FillRandom(mBytes.data(), mBytes.size());
            mNext = 0;
        }
        return mBytes[mNext++];
    }

    std::array<unsigned char, 256> mBytes{};
    std::size_t mNext = mBytes.size();
    int mBlocks = 0;
};

bool HasAllClasses(std::string_view text) {
    return std::all_of(kClasses.begin(), kClasses.end(), [text](std::string_view characters) {
        return text.find_first_of(characters) != std::string_view::npos;
    });
}

bool SealBuffer(void* buffer, std::size_t size, std::optional<platform::MEMORYSEAL>& seal) noexcept {
    if (buffer == nullptr || seal) {
        return true;
    }
    platform::MEMORYSEAL made;
    if (!platform::SealMemory(buffer, size, made)) {
        return false;
    }
    seal = made;
    return true;
}

bool OpenBuffer(void* buffer, std::size_t size, std::optional<platform::MEMORYSEAL>& seal) noexcept {
    if (!seal) {
        return true;
    }
    if (!platform::OpenMemory(buffer, size, *seal)) {
        return false;
    }
    seal.reset();
    return true;
}

}  // namespace

/// Opens a password for a while.
class CPASSWORD::OPENING {
public:
    explicit OPENING(CPASSWORD& password) : mPassword(&password) { password.Lock(); }
    ~OPENING() { static_cast<void>(End()); }
    OPENING(const OPENING&) = delete;
    OPENING& operator=(const OPENING&) = delete;

    [[nodiscard]] bool End() noexcept {
        CPASSWORD* const password = std::exchange(mPassword, nullptr);
        return password == nullptr || password->EndUse();
    }

private:
    CPASSWORD* mPassword;
};

CPASSWORD::CPASSWORD() noexcept = default;

CPASSWORD::CPASSWORD(std::size_t textLength) {
    Require(textLength <= kLongestText, kErrInvalidArgument,
            "the text of a password is too long, wanted less than 2 GiB");
    const std::size_t size =
        (textLength / platform::kSealBlockSize + 1) * platform::kSealBlockSize;  // the terminator fits always
    mNarrow = static_cast<char*>(platform::AllocateSecret(size));
    RequireMemory(mNarrow);
    mBufferSize = static_cast<std::int32_t>(size);
    mLength = static_cast<std::int32_t>(textLength + 1);
    mDepth = 1;
}

CPASSWORD::CPASSWORD(CPASSWORD&& other) noexcept { Swap(other); }

CPASSWORD& CPASSWORD::operator=(CPASSWORD&& other) noexcept {
    CPASSWORD taken(std::move(other));
    Swap(taken);
    return *this;
}

CPASSWORD::~CPASSWORD() {
    platform::FreeSecret(mWide, WideSize());
    platform::FreeSecret(mNarrow, static_cast<std::size_t>(mBufferSize));
}

std::unique_ptr<CPASSWORD> CPASSWORD::Create(short length) {
    Require(length >= 0 && static_cast<std::size_t>(length) <= kAlphabet.size(), kErrInvalidArgument, "a password of ",
            length, " characters asked for, wanted 0 to ", kAlphabet.size());
    std::unique_ptr<CPASSWORD> password(new CPASSWORD(static_cast<std::size_t>(length)));
    SeedRand();
    const std::string_view drawn = kAlphabet.substr(0, static_cast<std::size_t>(length));
    std::generate_n(password->mNarrow, length, [drawn] { return RandOf(drawn); });
    password->Unlock();
    return password;
}

std::unique_ptr<CPASSWORD> CPASSWORD::CreateStrong(short length) {
    RequireAllClasses(length);
    std::unique_ptr<CPASSWORD> password(new CPASSWORD(static_cast<std::size_t>(length)));
    SeedRand();
    std::array<short, kClasses.size()> positions = RandPositions(length);
    const WIPER wiper(positions.data(), sizeof(positions));
    for (short i = 0; i < length; ++i) {
        const auto position = std::find(positions.begin(), positions.end(), i);
        password->mNarrow[i] = RandOf(
            position == positions.end() ? kAlphabet : kClasses[static_cast<std::size_t>(position - positions.begin())]);
    }
    password->Unlock();
    return password;
}

std::unique_ptr<CPASSWORD> CPASSWORD::CreateSecure(short length) {
    RequireAllClasses(length);
    std::unique_ptr<CPASSWORD> password(new CPASSWORD(static_cast<std::size_t>(length)));
    CHARACTERSOURCE source;
    // Texts are dropped as wholes, or those that remain would not be equally likely.
    do {
        std::generate_n(password->mNarrow, length, [&source] { return source.Next(); });
    } while (!HasAllClasses({password->mNarrow, static_cast<std::size_t>(length)}));
    password->Unlock();
    return password;
}

double CPASSWORD::SecureEntropy(short length) {
    RequireAllClasses(length);
    // Inclusion and exclusion over the sets of classes that a text lacks, each as a share of all texts.
    double share = 0;
    for (unsigned int lacking = 0; lacking < 1U << kClasses.size(); ++lacking) {
        std::size_t left = kAlphabet.size();
        for (std::size_t i = 0; i < kClasses.size(); ++i) {
            left -= (lacking >> i & 1U) != 0 ? kClasses[i].size() : 0;
        }
        const double part = std::pow(static_cast<double>(left) / static_cast<double>(kAlphabet.size()), length);
        share += std::popcount(lacking) % 2 == 0 ? part : -part;
    }
    return length * std::log2(static_cast<double>(kAlphabet.size())) + std::log2(share);
}

std::unique_ptr<CPASSWORD> CPASSWORD::Create(const char* text) {
    Require(text != nullptr, kErrNull, "the text of a password is null");
    const std::size_t length = std::strlen(text);
    std::unique_ptr<CPASSWORD> password(new CPASSWORD(length));
    std::memcpy(password->mNarrow, text, length);
    password->Unlock();
    return password;
}

std::unique_ptr<CPASSWORD> CPASSWORD::Create(const void* data, long size) {
    Require(size >= 0, kErrInvalidArgument, "a password of ", size, " bytes asked for, wanted 0 or more");
    Require(data != nullptr || size == 0, kErrNull, "the bytes of a password are null");
    std::unique_ptr<CPASSWORD> password(new CPASSWORD(static_cast<std::size_t>(size)));
    if (size > 0) {
        std::memcpy(password->mNarrow, data, static_cast<std::size_t>(size));
    }
    password->Unlock();
    return password;
}

std::unique_ptr<CPASSWORD> CPASSWORD::Clone() {
    if (mNarrow == nullptr) {
        return std::unique_ptr<CPASSWORD>(new CPASSWORD);
    }
    OPENING opening(*this);
    std::unique_ptr<CPASSWORD> clone = Create(mNarrow, mLength - 1);
    RequireSystem(opening.End(), kNotSealed);
    return clone;
}

void CPASSWORD::Lock() {
    if (mDepth == 0) {
        RequireSystem(OpenBuffers(), "the system did not open a password");
    }
    ++mDepth;
}

void CPASSWORD::Unlock() { RequireSystem(EndUse(), kNotSealed); }

CPASSWORD::operator const char*() const noexcept { return mNarrow; }

CPASSWORD::operator const wchar_t*() {
    if (mNarrow == nullptr || mWide != nullptr) {
        return mWide;
    }
    OPENING opening(*this);
    const auto release = [this](wchar_t* memory) { platform::FreeSecret(memory, WideSize()); };
    std::unique_ptr<wchar_t, decltype(release)> wide(static_cast<wchar_t*>(platform::AllocateSecret(WideSize())),
                                                     release);
    RequireMemory(wide.get());
    RequireSystem(platform::WidenText(mNarrow, static_cast<std::size_t>(mLength), wide.get()),
                  "the system did not convert a password to wide characters");
    mWide = wide.release();
    RequireSystem(opening.End(), kNotSealed);
    return mWide;
}

bool CPASSWORD::operator==(CPASSWORD& other) {
    OPENING left(*this);
    OPENING right(other);
    unsigned char difference = mLength == other.mLength ? 0 : 1;
    for (std::int32_t i = 0; i < std::min(mLength, other.mLength); ++i) {
        difference = static_cast<unsigned char>(difference | (mNarrow[i] ^ other.mNarrow[i]));
    }
    const bool isRightSealed = right.End();
    RequireSystem(left.End() && isRightSealed, kNotSealed);
    return difference == 0;
}

bool CPASSWORD::operator!=(CPASSWORD& other) { return !(*this == other); }

bool CPASSWORD::OpenBuffers() noexcept {
    if (OpenBuffer(mNarrow, static_cast<std::size_t>(mBufferSize), mNarrowSeal) &&
        OpenBuffer(mWide, WideSize(), mWideSeal)) {
        return true;
    }
    static_cast<void>(SealBuffers());
    return false;
}

bool CPASSWORD::SealBuffers() noexcept {
    const bool isWideSealed = SealBuffer(mWide, WideSize(), mWideSeal);
    return SealBuffer(mNarrow, static_cast<std::size_t>(mBufferSize), mNarrowSeal) && isWideSealed;
}

bool CPASSWORD::EndUse() noexcept {
    mDepth -= mDepth > 0 ? 1 : 0;
    return mDepth > 0 || SealBuffers();  // sealed buffers are left alone
}

std::size_t CPASSWORD::WideSize() const noexcept { return static_cast<std::size_t>(mBufferSize) * sizeof(wchar_t); }

void CPASSWORD::Swap(CPASSWORD& other) noexcept {
    std::swap(mWide, other.mWide);
    std::swap(mNarrow, other.mNarrow);
    std::swap(mBufferSize, other.mBufferSize);
    std::swap(mLength, other.mLength);
    std::swap(mDepth, other.mDepth);
    std::swap(mWideSeal, other.mWideSeal);
    std::swap(mNarrowSeal, other.mNarrowSeal);
}

}  // namespace MLCore
