#pragma once

#include <MLCore/core/COBJECT.h>
#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/core/ClassDeclaration.h>
#include <MLCore/core/ExactClass.h>
#include <MLCore/platform/Export.h>
#include <MLCore/values/CVALUE.h>

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <iosfwd>

namespace MLCore {

/// A value as a shared object. As an object it can be an element of a collection or the value of a key path. It
/// compares as predicates compare.
///
///     CSHAREOBJECTPTR<CVALUEOBJECT> name = CVALUEOBJECT::Create("Ren\xE9");
///     name->Cmp("rene", CVALUEOBJECT::ComparisonType::Equal,
///               CVALUEOBJECT::ComparisonOption::DiacriticInsensitive);  // 1
///
/// A comparison goes by the type of this side, while == of CVALUE is false for different types:
///
/// | this side  | the other side | how                                                                 |
/// |------------|----------------|---------------------------------------------------------------------|
/// | a number   | a number       | as doubles, equal within 0.00001 (DoubleCmp), a NaN to every number |
/// | Date       | Date           | as dates                                                            |
/// | DateTime   | DateTime       | as date-times                                                       |
/// | either     | the other      | as date-times, the date at 00:00:00                                 |
/// | String     | String         | under the option                                                    |
/// | Guid       | Guid           | byte by byte, as unsigned                                           |
/// | Object     | any            | equal to the same object only; in no order                          |
/// | Unknown    | any            | equal to Unknown only; in no order with any value                   |
///
/// Numbers are the integers, Float, Double, Bool, and Time by its seconds (ValueComparison.h). Sides that cannot be
/// compared fail with kErrValueType (138).
///
/// Comparing two values changes nothing, copies no text and takes no memory. Any number of threads may compare the same
/// objects as long as none sets a value. Begins, Ends and the orders are linear in the texts. Contains and Like take,
/// at worst, time in proportion to the product of the two lengths.
class MLCORE_API CVALUEOBJECT : public COBJECT {
    MLCORE_CLASS(CVALUEOBJECT, COBJECT)
public:
    enum class ComparisonType : std::int32_t {
        Lesser,
        LesserEqual,
        Greater,
        GreaterEqual,
        Equal,
        NotEqual,  ///< the opposite of Equal, so null differs from everything else
        Like,      ///< this side matches the other as a pattern (LikePattern.h); 0 unless both are texts
        Begins,    ///< this text begins with the other; as Ends and Contains, 0 with a null, a failure for other types
        Ends,      ///< this text ends with the other
        In,        ///< this side is Equal to an element of a collection; 0 between two values
        Contains,  ///< this text contains the other, or a text of a collection
        Between,   ///< 0: a predicate makes it of two comparisons
    };
    static constexpr std::size_t kComparisonTypeCount = static_cast<std::size_t>(ComparisonType::Between) + 1;

    /// How texts compare. An unknown option counts as CaseSensitive.
    enum class ComparisonOption : std::int32_t {
        CaseSensitive,    ///< byte by byte, as unsigned
        CaseInsensitive,  ///< Equal and order: CompareNoCaseLocale(); Begins, Ends, Contains: alike when upper-cased
        DiacriticInsensitive,  ///< without accents and the case of A to Z: lstrcmpinolocal()
    };
    static constexpr std::size_t kComparisonOptionCount =
        static_cast<std::size_t>(ComparisonOption::DiacriticInsensitive) + 1;

    /// A new object with a copy of `value`, null by default.
    [[nodiscard]] static CSHAREOBJECTPTR<CVALUEOBJECT> Create(const CVALUE& value = CVALUE::Null());
    /// A new object that takes over `value`.
    [[nodiscard]] static CSHAREOBJECTPTR<CVALUEOBJECT> Create(CVALUE&& value);

    /// Valid until the value is set or the object is released.
    [[nodiscard]] const CVALUE& GetValue() const noexcept { return mValue; }
    void SetValue(const CVALUE& value) { mValue = value; }

    /// 1 when the relation `type` holds from this value to `other`, else 0. In, Between and unknown types give 0.
    [[nodiscard]] int Cmp(const CVALUE& other, ComparisonType type, ComparisonOption option) const;
    /// The same for an object: a value object, by its value, or a collection (CARRAY or CSET).
    ///
    /// In: 1 when the collection holds a value object that this one is Equal to. The elements before it may fail as
    /// Equal does. Contains: 1 when this value is a text and contains a text of the collection. Other elements are
    /// skipped. Every other pair gives 0, also with null and also for NotEqual.
    [[nodiscard]] int Cmp(COBJECT* other, ComparisonType type, ComparisonOption option) const;
    /// A number. Without this overload 0L would be a null object, as a plain 0 is.
    template <std::integral T>
    requires(!std::same_as<T, int>) [[nodiscard]] int Cmp(T other, ComparisonType type, ComparisonOption option) const {
        return Cmp(CVALUE(other), type, option);
    }
    template <class T>
    [[nodiscard]] int Cmp(const CSHAREOBJECTPTR<T>& other, ComparisonType type, ComparisonOption option) const {
        return Cmp(static_cast<COBJECT*>(other.Get()), type, option);
    }

protected:
    explicit CVALUEOBJECT(const CVALUE& value);
    explicit CVALUEOBJECT(CVALUE&& value) noexcept;
    ~CVALUEOBJECT() override;

    // The comparison types one by one; 0 or 1.
    [[nodiscard]] int CmpLesser(const CVALUE& other, ComparisonOption option) const;
    [[nodiscard]] int CmpLesserEq(const CVALUE& other, ComparisonOption option) const;
    [[nodiscard]] int CmpGreater(const CVALUE& other, ComparisonOption option) const;
    [[nodiscard]] int CmpGreaterEq(const CVALUE& other, ComparisonOption option) const;
    [[nodiscard]] int CmpEqual(const CVALUE& other, ComparisonOption option) const;
    [[nodiscard]] int CmpNotEqual(const CVALUE& other, ComparisonOption option) const;
    [[nodiscard]] int CmpLike(const CVALUE& other, ComparisonOption option) const;
    [[nodiscard]] int CmpBegins(const CVALUE& other, ComparisonOption option) const;
    [[nodiscard]] int CmpEnds(const CVALUE& other, ComparisonOption option) const;
    [[nodiscard]] int CmpContains(const CVALUE& other, ComparisonOption option) const;
    /// For texts, none of them null, with every character as it is.
    [[nodiscard]] int CmpLike(const char* text, const char* pattern) const;
    [[nodiscard]] int CmpContains(const char* text, const char* part) const;
    /// The order of two texts, none of them null, under the option: -1, 0 or 1. Decides Equal and the orderings.
    [[nodiscard]] virtual short CmpString(const char* left, const char* right, ComparisonOption option) const;

    // The values that a comparison uses. Each fails with kErrValueType for a value of another kind.
    [[nodiscard]] static double TryToDouble(const CVALUE& value);
    [[nodiscard]] static CDATETIME TryToDateTime(const CVALUE& value);
    /// Borrowed from the value.
    [[nodiscard]] static const char* TryToString(const CVALUE& value);

private:
    struct ORDERING;

    /// False with a null on either side, and when this side is an object: these have no order.
    [[nodiscard]] bool HasOrder(const CVALUE& other) const noexcept;
    /// -1, 0 or 1. Only for values that have an order.
    [[nodiscard]] short Order(const CVALUE& other, ComparisonOption option) const;

    CVALUE mValue;
};

/// `object` as a value object; null for null and for an object of another class. Works like dynamic_cast, only faster.
[[nodiscard]] CVALUEOBJECT* AsValueObject(COBJECT* object) noexcept;
[[nodiscard]] const CVALUEOBJECT* AsValueObject(const COBJECT* object) noexcept;

/// The value of a value object, as a key path or a collection gives it:
///
///     const double sales = ValueOf(order->GetKeyPathValue("customer.sales")).ToDouble();
///
/// Fails with kErrValueType for null and for an object of another class.
[[nodiscard]] MLCORE_API CVALUE ValueOf(const COBJECT* object);
template <class T>
[[nodiscard]] CVALUE ValueOf(const CSHAREOBJECTPTR<T>& object) {
    return ValueOf(object.Get());
}

/// Equality of the two values: same type, same content. The compiler derives != from it, and the comparison in the
/// other direction.
[[nodiscard]] MLCORE_API bool operator==(const CVALUEOBJECT& object, const CVALUE& value) noexcept;

/// Writes "ComparisonType::Lesser"; nothing for an unknown one.
MLCORE_API std::ostream& operator<<(std::ostream& out, CVALUEOBJECT::ComparisonType type);
/// Writes the option's word in element streams, "caseSensitive", "caseInsensitive" or "diacriticInsentive" (spelled
/// like this); nothing for an unknown one.
MLCORE_API std::ostream& operator<<(std::ostream& out, CVALUEOBJECT::ComparisonOption option);
/// Writes the value as operator<< of CVALUE does; "CVALUEOBJECT()" for a null pointer.
MLCORE_API std::ostream& operator<<(std::ostream& out, const CVALUEOBJECT* object);

inline CVALUEOBJECT* AsValueObject(COBJECT* object) noexcept {
    const bool isUsual = object != nullptr && IsExactly<CVALUEOBJECT>(*object);
    return isUsual ? static_cast<CVALUEOBJECT*>(object) : dynamic_cast<CVALUEOBJECT*>(object);
}

inline const CVALUEOBJECT* AsValueObject(const COBJECT* object) noexcept {
    return AsValueObject(const_cast<COBJECT*>(object));
}

}  // namespace MLCore
