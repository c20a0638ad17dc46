/// \file
/// The comparisons of two operands: a class for each.
///
///     const auto isLarge =
///         CGREATERPREDICATE::Create(CKEYEXPRESSION::Create("amount"), CVALUEEXPRESSION::Create(1000L));
#pragma once

#include <MLCore/predicates/CCOMPARISONBINARYPREDICATE.h>

namespace MLCore {

/// The functions that these classes share: all that they have except their names.
template <class Class, CVALUEOBJECT::ComparisonType comparison>
class BINARYPREDICATE : public CCOMPARISONBINARYPREDICATE {
public:
    /// The comparison of `left` with `right`. Fails with kErrNull (-100) for a null operand. The option says how
    /// texts compare: option 0, the default, takes them as they are.
    [[nodiscard]] static CSHAREOBJECTPTR<CPREDICATE> Create(
        const CSHAREOBJECTPTR<CEXPRESSION>& left, const CSHAREOBJECTPTR<CEXPRESSION>& right,
        CVALUEOBJECT::ComparisonOption option = CVALUEOBJECT::ComparisonOption::CaseSensitive) {
        return AdoptObject<CPREDICATE>(new Class(left, right, option));
    }

protected:
    BINARYPREDICATE() : CCOMPARISONBINARYPREDICATE(comparison) {}
    BINARYPREDICATE(const CSHAREOBJECTPTR<CEXPRESSION>& left, const CSHAREOBJECTPTR<CEXPRESSION>& right,
                    CVALUEOBJECT::ComparisonOption option)
        : CCOMPARISONBINARYPREDICATE(comparison, left, right, option) {}
};

/// Left < right.
class MLCORE_API CLESSERPREDICATE : public BINARYPREDICATE<CLESSERPREDICATE, CVALUEOBJECT::ComparisonType::Lesser> {
    MLCORE_CLASS(CLESSERPREDICATE, CCOMPARISONBINARYPREDICATE)
    friend BINARYPREDICATE;

protected:
    using BINARYPREDICATE::BINARYPREDICATE;
    ~CLESSERPREDICATE() override = default;
};

/// Left <= right.
class MLCORE_API CLESSEREQPREDICATE
    : public BINARYPREDICATE<CLESSEREQPREDICATE, CVALUEOBJECT::ComparisonType::LesserEqual> {
    MLCORE_CLASS(CLESSEREQPREDICATE, CCOMPARISONBINARYPREDICATE)
    friend BINARYPREDICATE;

protected:
    using BINARYPREDICATE::BINARYPREDICATE;
    ~CLESSEREQPREDICATE() override = default;
};

/// Left > right.
class MLCORE_API CGREATERPREDICATE : public BINARYPREDICATE<CGREATERPREDICATE, CVALUEOBJECT::ComparisonType::Greater> {
    MLCORE_CLASS(CGREATERPREDICATE, CCOMPARISONBINARYPREDICATE)
    friend BINARYPREDICATE;

protected:
    using BINARYPREDICATE::BINARYPREDICATE;
    ~CGREATERPREDICATE() override = default;
};

/// Left >= right.
class MLCORE_API CGREATEREQPREDICATE
    : public BINARYPREDICATE<CGREATEREQPREDICATE, CVALUEOBJECT::ComparisonType::GreaterEqual> {
    MLCORE_CLASS(CGREATEREQPREDICATE, CCOMPARISONBINARYPREDICATE)
    friend BINARYPREDICATE;

protected:
    using BINARYPREDICATE::BINARYPREDICATE;
    ~CGREATEREQPREDICATE() override = default;
};

/// Left = right.
class MLCORE_API CEQUALPREDICATE : public BINARYPREDICATE<CEQUALPREDICATE, CVALUEOBJECT::ComparisonType::Equal> {
    MLCORE_CLASS(CEQUALPREDICATE, CCOMPARISONBINARYPREDICATE)
    friend BINARYPREDICATE;

protected:
    using BINARYPREDICATE::BINARYPREDICATE;
    ~CEQUALPREDICATE() override = default;
};

/// Left != right.
class MLCORE_API CNOTEQUALPREDICATE
    : public BINARYPREDICATE<CNOTEQUALPREDICATE, CVALUEOBJECT::ComparisonType::NotEqual> {
    MLCORE_CLASS(CNOTEQUALPREDICATE, CCOMPARISONBINARYPREDICATE)
    friend BINARYPREDICATE;

protected:
    using BINARYPREDICATE::BINARYPREDICATE;
    ~CNOTEQUALPREDICATE() override = default;
};

/// The left text matches the right text, a pattern (LikePattern.h).
class MLCORE_API CLIKEPREDICATE : public BINARYPREDICATE<CLIKEPREDICATE, CVALUEOBJECT::ComparisonType::Like> {
    MLCORE_CLASS(CLIKEPREDICATE, CCOMPARISONBINARYPREDICATE)
    friend BINARYPREDICATE;

protected:
    using BINARYPREDICATE::BINARYPREDICATE;
    ~CLIKEPREDICATE() override = default;
};

/// The left text begins with the right text.
class MLCORE_API CBEGINSPREDICATE : public BINARYPREDICATE<CBEGINSPREDICATE, CVALUEOBJECT::ComparisonType::Begins> {
    MLCORE_CLASS(CBEGINSPREDICATE, CCOMPARISONBINARYPREDICATE)
    friend BINARYPREDICATE;

protected:
    using BINARYPREDICATE::BINARYPREDICATE;
    ~CBEGINSPREDICATE() override = default;
};

/// The left text ends with the right text.
class MLCORE_API CENDSPREDICATE : public BINARYPREDICATE<CENDSPREDICATE, CVALUEOBJECT::ComparisonType::Ends> {
    MLCORE_CLASS(CENDSPREDICATE, CCOMPARISONBINARYPREDICATE)
    friend BINARYPREDICATE;

protected:
    using BINARYPREDICATE::BINARYPREDICATE;
    ~CENDSPREDICATE() override = default;
};

/// The left text contains the right text, or one of the texts of a collection on the right.
class MLCORE_API CCONTAINSPREDICATE
    : public BINARYPREDICATE<CCONTAINSPREDICATE, CVALUEOBJECT::ComparisonType::Contains> {
    MLCORE_CLASS(CCONTAINSPREDICATE, CCOMPARISONBINARYPREDICATE)
    friend BINARYPREDICATE;

protected:
    using BINARYPREDICATE::BINARYPREDICATE;
    ~CCONTAINSPREDICATE() override = default;
};

}  // namespace MLCore
