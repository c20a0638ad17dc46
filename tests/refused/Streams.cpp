// What streams do not take for a value, a handle or an object: see Core.cpp.

#include <MLCore/streams/CBUFFERSTREAM.h>
#include <MLCore/streams/CISTREAMDECORATORFIELD.h>
#include <MLCore/streams/COSTREAMDECORATORFIELD.h>
#include <MLCore/streams/CSTREAMREADER.h>
#include <MLCore/streams/CSTREAMSAVER.h>
#include <MLCore/streams/CSTREAMWRITER.h>

using namespace MLCore;

void Values(COSTREAM& out, CSTREAMWRITER& writer, CBUFFERSTREAM& stream, CREADER& reader, COBJECT* object,
            const CSHAREOBJECTPTR<CSERIALIZABLEOBJECT>& holder, int number, bool flag) {
    char text[] = "text";
    out.SetValue(text);
    out.SetValue(static_cast<void*>(object));
    out.SetValue(1.0F);
    writer.SetObject(holder);
    stream << text;
    reader.GetValueBOOL(number);
    static_cast<void>(flag);
#ifdef REFUSED
    unsigned char bytes[] = "bytes";
    out.SetValue(bytes);                    // refused
    out.SetValue(&number);                  // refused
    out.SetValue(object);                   // refused
    out.SetValue(holder);                   // refused
    out.SetValue(nullptr);                  // refused
    out.SetValue(5);                        // refused
    out.SetValue(5LL + 5U);                 // refused
    out.SetValue(flag);                     // refused
    out << number;                          // refused
    stream.SetValue(&number);               // refused
    stream.GetValue(number);                // refused
    stream.GetValue(holder);                // refused
    stream >> text;                         // refused
    writer.SetValue(&number);               // refused
    writer.SetValue(nullptr);               // refused
    writer << &number;                      // refused
    reader.GetValue(number);                // refused
    reader >> flag;                         // refused
    CBUFFERSTREAM copy(stream);             // refused
    stream = stream;                        // refused
    CSTREAMSAVER(CSTREAMSAVER(stream), 0);  // refused
#endif
}

// A binary form between the lines of a text. Each line has a class of its own: the compiler complains once of each.
template <int>
class CORDER : public CSERIALIZABLEOBJECT {
public:
    void ReadState(CREADER& reader) override;
    void WriteState(CWRITER& writer) const override;
};

template <int Number>
CORDER<Number>& Order();

void ReadsOfTexts(CISTREAMDECORATORTEXT& text, CISTREAMDECORATORFIELD& fields, COSTREAM& out, void* handle,
                  short number, CDATE day) {
    CSTREAMREADER reader(fields);
    reader >> Order<0>() >> number >> day;
    fields >> number >> day >> out;
    text.GetValue(out);
    text.GetValue(handle, 5L);
    static_cast<CISTREAM&>(text).GetValue(Order<0>());
#ifdef REFUSED
    text >> Order<1>();                   // refused
    fields >> Order<2>();                 // refused
    fields >> number >> Order<3>();       // refused
    text.GetValue(Order<4>());            // refused
    fields.GetValue(Order<5>());          // refused
    fields.GetValue(handle);              // refused
    static_cast<void>(text.GetObject());  // refused
#endif
}

void WritesOfTexts(COSTREAMDECORATORTEXT& text, COSTREAMDECORATORFIELD& fields,
                   const CSHAREOBJECTPTR<CSERIALIZABLEOBJECT>& holder, void* handle) {
    CSTREAMWRITER writer(fields);
    char letters[] = "letters";
    writer << Order<0>() << endl;
    fields << 1L << letters << "text" << CDATE();
    text.SetValue(letters);
    text.SetValue(static_cast<const void*>(handle), 5L);
    static_cast<COSTREAM&>(text).SetObject(holder);
#ifdef REFUSED
    text << Order<6>();             // refused
    fields << Order<7>();           // refused
    fields << 1L << Order<8>();     // refused
    text.SetValue(Order<9>());      // refused
    fields.SetValue(Order<10>());   // refused
    fields.SetValue(handle);        // refused
    fields.SetValue(nullptr);       // refused
    fields.SetValue(&handle);       // refused
    fields.SetValue(holder);        // refused
    fields.SetValue(5);             // refused
    fields << 5;                    // refused
    text.SetObject(&Order<11>());   // refused
    fields.SetObject(Order<12>());  // refused
    fields.SetObject(holder);       // refused
    fields.SetObject(nullptr);      // refused
#endif
}
