// The records of one or more files, with what was said about reading them.

#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "book/arena.h"
#include "book/record.h"
#include "book/report.h"
#include "book/source.h"

namespace orvik::book {

class Book {
 public:
    Book() : details_(1) {}

    // Snapshot: a book with some of the contacts, in this order, that another thread may read,
    // write and change while this one goes on, and that shares all that was read. Contacts are by
    // their numbers here, no longer than this book's are known. Errors: std::bad_alloc.
    [[nodiscard]] std::unique_ptr<Book> Snapshot(std::span<const std::uint32_t> contacts) const;
    // Excerpt: a book with these contacts, in this order, that knows nothing of the others: cheap,
    // however large this book is. It has no report. Errors: std::bad_alloc.
    [[nodiscard]] std::unique_ptr<Book> Excerpt(std::span<const std::uint32_t> contacts) const;
    // TakeOver: all that a snapshot of this book has learnt since, but for its contacts, which can
    // stand in this book from now on. Nothing else was kept here meanwhile.
    void TakeOver(std::unique_ptr<Book> grown);

    std::deque<Contact> Contacts;
    FieldNames Names;
    Report Told;

    // Takes a source; it stays as long as the book. Returns its number, which origins name.
    std::uint32_t AddSource(std::unique_ptr<const Source> source);
    [[nodiscard]] const Source& SourceAt(std::uint32_t file) const { return *sources_[file]; }
    [[nodiscard]] std::size_t SourceCount() const { return sources_.size(); }

    // Whoever wants to say how far the work is: called for each record that was read, with bytes,
    // or written, compared or merged, with numbers.
    using Progress = std::function<void(std::size_t done, std::size_t all)>;
    Progress HowFar;
    void TellFar(std::size_t done, std::size_t all) const;

    // Says that so many of the contacts are written.
    void CountWritten(std::size_t count) const;
    [[nodiscard]] std::size_t ReadFrom(std::uint32_t file) const { return read_[file]; }

    // Text that lives as long as the book.
    std::string_view Keep(std::string_view text) { return own_->Texts.Keep(text); }

    [[nodiscard]] Arena& Texts() { return own_->Texts; }

    // What a property has besides its value.
    [[nodiscard]] const Details& DetailsOf(const Property& property) const {
        return details_[property.Details];
    }
    // Puts a group and parameters aside; both are 0 and empty for most properties. The group must
    // live as long as the book; the parameters are copied.
    std::uint32_t KeepDetails(std::string_view group, std::span<const Param> params);
    // The same, and the parameters may be taken instead.
    std::uint32_t TakeDetails(std::string_view group, std::vector<Param>& params);

    // Told of the contact from now on; AddRead ends it. all_utf8 says that the whole text of its
    // source is known to be UTF-8, and need not be looked at again.
    void BeginRead(Contact& contact, const Origin& from, bool all_utf8) const;
    // Takes a contact with the properties that were read, and counts it as read.
    void AddRead(const Contact& contact, std::vector<Property>& properties);
    // Tells as lost what cannot be written anew: bytes that were no letters.
    void TellLosses(const Contact& contact);

    // Changes of a user: the contact is written anew from then on.
    void SetValue(Contact& contact, std::size_t property, std::string_view value);
    void Add(Contact& contact, NameId name, std::string_view value);
    void Remove(Contact& contact, std::size_t property);
    // All of its properties at once.
    void Replace(Contact& contact, std::vector<Property>& properties);
    // WithFields: the contact as it would be with other properties; the one that there is stays.
    [[nodiscard]] Contact WithFields(const Contact& contact, std::vector<Property>& properties);

    // Members of lists who are no record of the book on purpose are not missed.
    void LeaveOut(const Property& member) { left_out_.insert(member.Value.data()); }
    [[nodiscard]] bool IsLeftOut(const Property& member) const {
        return left_out_.contains(member.Value.data());
    }

    // The bytes of a contact in its source; empty for one that came from none.
    [[nodiscard]] std::string_view BytesOf(const Contact& contact) const;

    // How many bytes the book may have when it is written, rather more than less. A text that grows
    // is there twice, and room that is not used takes no memory.
    [[nodiscard]] std::size_t LikelyLength() const;

    // How much memory texts and details take, in bytes, sources aside.
    [[nodiscard]] std::size_t TextHeld() const { return own_->Texts.Held(); }

 private:
    // Millions of values would be there twice while they are copied.
    static constexpr std::size_t kMostCopied = 4096;

    // What was kept stays where it is. Snapshots share it, and put aside what they keep themselves.
    struct Kept {
        Arena Texts;
        Arena Fields;
        // What is too much to be copied: of one contact, of one property.
        std::deque<std::vector<Property>> LongRows;
        std::deque<std::vector<Param>> LongParams;
    };

    void CountRead(Contact& contact);
    // The properties in the arena, where they are not too many.
    std::span<Property> KeepFields(std::vector<Property>& properties);
    [[nodiscard]] std::string_view TextOf(const Origin& from) const;

    std::deque<std::shared_ptr<const Source>> sources_;
    std::deque<std::size_t> read_;
    std::vector<std::shared_ptr<const Kept>> older_;
    std::shared_ptr<Kept> own_ = std::make_shared<Kept>();
    std::deque<Details> details_;
    // Where the values of these members stand.
    std::unordered_set<const char*> left_out_;
};

}  // namespace orvik::book
