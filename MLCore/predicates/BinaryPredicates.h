/// The comparisons of two operands, a class each. Every one is made by
///
///     X::Create(left, right, option)
///
/// where a null operand fails with -100, and option 0, the default, compares texts as they are.
#pragma once

#include <MLCore/predicates/CCOMPARISONBINARYPREDICATE.h>

namespace MLCore {

/// What these classes have besides their names.
template <class Class, CVALUEOBJECT::ComparisonType comparison>
class BINARYPREDICATE : public CCOMPARISONBINARYPREDICATE {
public:
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
    friend class BINARYPREDICATE<CLESSERPREDICATE, CVALUEOBJECT::ComparisonType::Lesser>;

protected:
    using BINARYPREDICATE::BINARYPREDICATE;
    ~CLESSERPREDICATE() override;
};

/// Left <= right.
class MLCORE_API CLESSEREQPREDICATE
    : public BINARYPREDICATE<CLESSEREQPREDICATE, CVALUEOBJECT::ComparisonType::LesserEqual> {
    MLCORE_CLASS(CLESSEREQPREDICATE, CCOMPARISONBINARYPREDICATE)
    friend class BINARYPREDICATE<CLESSEREQPREDICATE, CVALUEOBJECT::ComparisonType::LesserEqual>;

protected:
    using BINARYPREDICATE::BINARYPREDICATE;
    ~CLESSEREQPREDICATE() override;
};

/// Left > right.
class MLCORE_API CGREATERPREDICATE : public BINARYPREDICATE<CGREATERPREDICATE, CVALUEOBJECT::ComparisonType::Greater> {
    MLCORE_CLASS(CGREATERPREDICATE, CCOMPARISONBINARYPREDICATE)
    friend class BINARYPREDICATE<CGREATERPREDICATE, CVALUEOBJECT::ComparisonType::Greater>;

protected:
    using BINARYPREDICATE::BINARYPREDICATE;
    ~CGREATERPREDICATE() override;
};

/// Left >= right.
class MLCORE_API CGREATEREQPREDICATE
    : public BINARYPREDICATE<CGREATEREQPREDICATE, CVALUEOBJECT::ComparisonType::GreaterEqual> {
    MLCORE_CLASS(CGREATEREQPREDICATE, CCOMPARISONBINARYPREDICATE)
    friend class BINARYPREDICATE<CGREATEREQPREDICATE, CVALUEOBJECT::ComparisonType::GreaterEqual>;

protected:
    using BINARYPREDICATE::BINARYPREDICATE;
    ~CGREATEREQPREDICATE() override;
};

/// Left = right.
class MLCORE_API CEQUALPREDICATE : public BINARYPREDICATE<CEQUALPREDICATE, CVALUEOBJECT::ComparisonType::Equal> {
    MLCORE_CLASS(CEQUALPREDICATE, CCOMPARISONBINARYPREDICATE)
    friend class BINARYPREDICATE<CEQUALPREDICATE, CVALUEOBJECT::ComparisonType::Equal>;

protected:
    using BINARYPREDICATE::BINARYPREDICATE;
    ~CEQUALPREDICATE() override;
};

/// Left != right.
class MLCORE_API CNOTEQUALPREDICATE
    : public BINARYPREDICATE<CNOTEQUALPREDICATE, CVALUEOBJECT::ComparisonType::NotEqual> {
    MLCORE_CLASS(CNOTEQUALPREDICATE, CCOMPARISONBINARYPREDICATE)
    friend class BINARYPREDICATE<CNOTEQUALPREDICATE, CVALUEOBJECT::ComparisonType::NotEqual>;

protected:
    using BINARYPREDICATE::BINARYPREDICATE;
    ~CNOTEQUALPREDICATE() override;
};

/// The left text matches the right one as a pattern (LikePattern.h).
class MLCORE_API CLIKEPREDICATE : public BINARYPREDICATE<CLIKEPREDICATE, CVALUEOBJECT::ComparisonType::Like> {
    MLCORE_CLASS(CLIKEPREDICATE, CCOMPARISONBINARYPREDICATE)
    friend class BINARYPREDICATE<CLIKEPREDICATE, CVALUEOBJECT::ComparisonType::Like>;

protected:
    using BINARYPREDICATE::BINARYPREDICATE;
    ~CLIKEPREDICATE() override;
};

/// The left text begins with the right one.
class MLCORE_API CBEGINSPREDICATE : public BINARYPREDICATE<CBEGINSPREDICATE, CVALUEOBJECT::ComparisonType::Begins> {
    MLCORE_CLASS(CBEGINSPREDICATE, CCOMPARISONBINARYPREDICATE)
    friend class BINARYPREDICATE<CBEGINSPREDICATE, CVALUEOBJECT::ComparisonType::Begins>;

protected:
    using BINARYPREDICATE::BINARYPREDICATE;
    ~CBEGINSPREDICATE() override;
};

/// The left text ends with the right one.
class MLCORE_API CENDSPREDICATE : public BINARYPREDICATE<CENDSPREDICATE, CVALUEOBJECT::ComparisonType::Ends> {
    MLCORE_CLASS(CENDSPREDICATE, CCOMPARISONBINARYPREDICATE)
    friend class BINARYPREDICATE<CENDSPREDICATE, CVALUEOBJECT::ComparisonType::Ends>;

protected:
    using BINARYPREDICATE::BINARYPREDICATE;
    ~CENDSPREDICATE() override;
};

/// The left text contains the right one, or a text of the collection on the right.
class MLCORE_API CCONTAINSPREDICATE
    : public BINARYPREDICATE<CCONTAINSPREDICATE, CVALUEOBJECT::ComparisonType::Contains> {
    MLCORE_CLASS(CCONTAINSPREDICATE, CCOMPARISONBINARYPREDICATE)
    friend class BINARYPREDICATE<CCONTAINSPREDICATE, CVALUEOBJECT::ComparisonType::Contains>;

protected:
    using BINARYPREDICATE::BINARYPREDICATE;
    ~CCONTAINSPREDICATE() override;
};

}  // namespace MLCore
