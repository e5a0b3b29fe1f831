#include "app/text.h"

#include "app/run_time_error.h"

namespace orvik {

void CutEnd(std::string& text, std::size_t count) {
    if (text.size() < count) {
        throw RunTimeError(Failure::InvalidProcedureCall);
    }
    text.resize(text.size() - count);
}

}  // namespace orvik
