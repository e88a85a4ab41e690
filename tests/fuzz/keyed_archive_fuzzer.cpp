// Whatever the bytes, an archive is read or refused; what is read can be written and read again.
#include <cstdlib>

#include "platform/foundation/keyed_archiver.h"
#include "platform/foundation/property_list.h"

namespace {

/// Stands in for any class of the system: it keeps one object and one number.
class Box final : public gexlo::NSCoding {
public:
    const char* className() const override { return "Box"; }
    void encodeWithCoder(gexlo::NSCoder& coder) const override {
        coder.encodeObject_forKey(content, "content");
        coder.encodeInteger_forKey(number, "number");
    }
    gexlo::Object content;
    gexlo::NSInteger number = 0;
};

const gexlo::CodingClass kClasses[] = {{"Box", [](gexlo::NSDecoder& decoder) {
                                            auto box = std::make_shared<Box>();
                                            box->content = decoder.decodeObjectForKey("content");
                                            box->number = decoder.decodeIntegerForKey("number");
                                            return box;
                                        }}};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    (void)gexlo::propertyListFromText({reinterpret_cast<const char*>(data), size});
    const auto read = gexlo::NSKeyedUnarchiver::unarchiveObjectWithData({data, size}, kClasses);
    if (!read) return 0;
    const gexlo::NSData written = gexlo::NSKeyedArchiver::archivedDataWithRootObject(*read);
    if (!gexlo::NSKeyedUnarchiver::unarchiveObjectWithData(written, kClasses)) std::abort();
    return 0;
}
