#include "host/texts/system_errors.h"

#include "host/texts/texts.h"

namespace standin {

std::string WordsFor(const std::error_code& failed) {
    constexpr struct {
        std::errc error;
        Text text;
    } kKnown[] = {
        {std::errc::permission_denied, Text::kDenied},
        {std::errc::operation_not_permitted, Text::kDenied},
        {std::errc::no_space_on_device, Text::kNoSpace},
        {std::errc::no_such_file_or_directory, Text::kNoSuchPath},
        {std::errc::not_a_directory, Text::kNotAFolder},
        {std::errc::is_a_directory, Text::kIsAFolder},
        {std::errc::read_only_file_system, Text::kReadOnly},
        {std::errc::file_too_large, Text::kFileTooLarge},
        {std::errc::filename_too_long, Text::kNameTooLong},
    };
    for (const auto& row : kKnown) {
        if (failed == row.error) {
            return Say(row.text, {});
        }
    }
    return failed.message();
}

}  // namespace standin
