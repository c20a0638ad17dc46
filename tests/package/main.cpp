#include <MLCore/MLCore.h>

#include <iostream>
#include <string>
#include <vector>

using namespace MLCore;

// Your own class: its properties have names, and a stream writes its objects and creates them again.
class CORDER : public CSERIALIZABLEOBJECT, public CKEYNAMES {
    MLCORE_CLASS(CORDER, CSERIALIZABLEOBJECT, CKEYNAMES)
public:
    CORDER() = default;
    CORDER(const char* customer, double amount, CDATE day) : mCustomer(customer), mAmount(amount), mDay(day) {}

    CSHAREOBJECTPTR<COBJECT> GetKeyValue(const std::string& key) override {
        if (key == "customer") return CVALUEOBJECT::Create(mCustomer);
        if (key == "amount") return CVALUEOBJECT::Create(mAmount);
        if (key == "day") return CVALUEOBJECT::Create(mDay);
        return CSERIALIZABLEOBJECT::GetKeyValue(key);  // fails: an unknown key
    }
    std::vector<std::string> GetKeyNames() const override { return {"customer", "amount", "day"}; }
    void WriteState(CWRITER& writer) const override {
        writer << mAmount << mDay << static_cast<long>(mCustomer.size())
               << mCustomer;  // a text is written without its length
    }
    void ReadState(CREADER& reader) override {
        long length = 0;
        reader >> mAmount >> mDay >> length;
        reader.GetValue(mCustomer, length);
    }

private:
    std::string mCustomer;
    double mAmount = 0;
    CDATE mDay;
};
MLCORE_REGISTER_CLASS(CORDER)

int main() try {
    CBUFFERSTREAM stream;
    stream.Open();
    stream.SetObject(AdoptObject(new CORDER("Martin", 250, CDATE(30, 4, 2026))));  // day, month, year
    stream.SetObject(AdoptObject(new CORDER("Dupont", 99.5, CDATE(13, 7, 2026))));
    stream.SetObject(AdoptObject(new CORDER("Almeida", 1200, CDATE(24, 12, 2026))));

    stream.Open();  // back to the beginning
    const auto orders = CMEMARRAY::Create();
    while (!stream.IsEnd()) orders->AddObject(stream.GetObject());

    const auto isLarge = CGREATERPREDICATE::Create(CKEYEXPRESSION::Create("amount"), CVALUEEXPRESSION::Create(100.0));
    std::cout << CPREDICATEHELPER(isLarge).GetStrSQL() << ":\n";
    for (const auto& order : SortArray(orders->Filter(isLarge), CSORTDESCRIPTORBUILDER::Create("+customer"))) {
        const CDATE day = ValueOf(order->GetKeyValue("day")).ToDate();
        std::cout << ValueOf(order->GetKeyValue("customer")) << " gets it after " << day.ToStringXML() << ", on "
                  << NextDateOuvre(day, nullptr).ToStringXML() << '\n';  // the next business day, in France
    }
} catch (const FrameworkException& failure) {
    std::cerr << failure << '\n';
    return 1;
}
