// What streams do not take for a value, a handle or an object: see Core.cpp.

#include <MLCore/streams/CBUFFERSTREAM.h>
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
