// People with as many fields as programs of their time could write.

#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace orvik::bench {

inline std::string NameOfPerson(std::size_t number) {
    constexpr std::array<std::string_view, 8> kFirst = {
        "Mary", "John", "Anne-Marie", "Li", "Fatima", "Oluwaseun", "Jo", "Alexander"};
    constexpr std::array<std::string_view, 7> kLast = {
        "Miller", "O'Brien", "Ng", "Garcia", "Papadopoulos", "Lee", "van der Berg"};
    return std::string(kFirst[number % kFirst.size()]) + " " +
           std::string(kLast[number % kLast.size()]);
}

// The name by which a list of LDIF calls somebody.
inline std::string DnOfPerson(std::size_t number) {
    constexpr std::array<std::string_view, 4> kHosts = {
        "mail.example", "example.org", "students.university.example", "x.example"};
    const std::string name = NameOfPerson(number);
    return "cn=" + name + ",mail=" + name.substr(0, name.find(' ')) + std::to_string(number) + "@" +
           std::string(kHosts[number % kHosts.size()]);
}

// As LDIF of 1998: 600 bytes, 25 a line.
inline void AppendPerson(std::size_t number, std::string& to) {
    const std::string name = NameOfPerson(number);
    const std::string dn = DnOfPerson(number);
    const std::string given = name.substr(0, name.find(' '));
    const std::string digits = std::to_string(number);
    to += "dn: " + dn + "\ncn: " + name + "\nsn: " + name.substr(given.size() + 1) +
          "\ngivenname: " + given +
          "\nobjectclass: top\nobjectclass: person\nobjectclass: organizationalPerson\n"
          "objectclass: inetOrgPerson\nmail: " +
          dn.substr(dn.rfind('=') + 1) + "\nxmozillanickname: " + given + digits +
          "\nxmozillausehtmlmail: FALSE\nxmozillauseconferenceserver: 0\nl: Springfield\n"
          "st: IL\npostalcode: 62701\nstreetaddress: " +
          digits +
          " Main Street\ncountryname: US\no: The choir of the town\ntitle: tenor\n"
          "telephonenumber: 555-0100\nhomephone: 555-0101\nfacsimiletelephonenumber: 555-0102\n"
          "cellphone: 555-" +
          digits + "\ndescription: met at the meeting of May\n\n";
}

}  // namespace orvik::bench
