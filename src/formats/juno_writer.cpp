#include "formats/juno_writer.h"

#include "app/text.h"
#include "app/working_text.h"

namespace orvik {

std::string WriteJuno(std::string_view native, std::string_view separator, Progress& progress) {
    const bool by_comma = separator == ",";
    NativeReader reader(native, by_comma ? ',' : '\r');
    PercentMeter meter(progress, reader.Separator());
    std::string book = "\r\n\r\n";
    std::string address;
    while (reader.Next()) {
        meter.Reach(reader.AddressEnd());
        address.clear();
        AppendWithout(address, reader.RawAddress(), by_comma ? ' ' : '\n');
        const std::string_view nickname = reader.TakeNickname();
        book.append("Type:Entry\r\nName:").append(nickname);
        book.append("\r\nEmail:").append(address);
        book.append("\r\nAlias:").append(nickname).append("\r\n\r\n");
        progress.Record();
    }
    meter.Reach(reader.Separator());
    CutEnd(book, kCrLf.size());
    return book;
}

}  // namespace orvik
