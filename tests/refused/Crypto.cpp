// What a password is not used for: see Core.cpp.

#include <MLCore/crypto/CPASSWORD.h>

#include <ostream>

using namespace MLCore;

void Passwords(CPASSWORD& password, const CPASSWORD& constant, std::ostream& out, std::wostream& wide) {
    static_cast<void>(password == password && password != password);
    static_cast<void>(&constant);
    static_cast<void>(&out);
    static_cast<void>(&wide);
#ifdef REFUSED
    out << constant;                          // refused
    out << password;                          // refused
    wide << constant;                         // refused
    static_cast<void>(constant == constant);  // refused
    static_cast<void>(password != constant);  // refused
    static_cast<void>(password == "text");    // refused
    static_cast<void>("text" == password);    // refused
    static_cast<void>(CPASSWORD(constant));   // refused
#endif
}
