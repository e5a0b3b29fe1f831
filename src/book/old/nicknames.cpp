#include "book/old/nicknames.h"

#include <utility>

#include "book/member_names.h"

namespace orvik::book {

void Nicknames::Add(std::string_view nickname, std::uint32_t line) {
    if (std::string key = NicknameKey(nickname); !key.empty()) {
        lines_.emplace(std::move(key), line);
    }
}

void Nicknames::PushMembers(EntryBuilder& list,
                            std::span<const Mailbox> members,
                            std::uint32_t line) const {
    for (const Mailbox& one : members) {
        const auto found = one.Address.empty() ? lines_.find(NicknameKey(one.Name)) : lines_.end();
        if (found != lines_.end()) {
            list.PushMemberAt(found->second, line);
        } else {
            list.PushMember(one.Address, one.Name, line);
        }
    }
}

bool Nicknames::Has(std::string_view nickname) const {
    return lines_.contains(NicknameKey(nickname));
}

}  // namespace orvik::book
