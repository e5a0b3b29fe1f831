"""Books, made up, that hold what other programs may misread: letters, long lines, separators in values,
and all that is known to differ."""

import base64


def ldif_text(name, value):
    return name + b":: " + base64.b64encode(value.encode()) + b"\n"


LDIF = {
    "people": (
        b"dn: cn=Ada Abbott,mail=ada@example.org\n"
        b"objectclass: top\nobjectclass: person\nobjectclass: mozillaAbPersonAlpha\n"
        b"cn: Ada Abbott\nsn: Abbott\ngivenName: Ada\nmozillaNickname: ada\n"
        b"mail: ada@example.org\nmozillaSecondEmail: abbott@example.net\n"
        b"telephoneNumber: +1 555 0100\nhomePhone: (555) 0101\nmobile: 555-0102\n"
        b"pager: 0103\nfacsimileTelephoneNumber: 0104\n\n"
        b"dn: cn=separators\nobjectclass: person\n"
        b"cn: Berg, Bo; \\ \"the\" first\nsn: Berg, or; Hill\\\ngivenName: B,o; \\n\n"
        b"mail: bo,berg@example.org\n\n"
        b"dn: cn=nobody,mail=only@example.org\nobjectclass: person\nmail: only@example.org\n\n"
        b"dn: cn=letters\nobjectclass: person\n"
        + ldif_text(b"cn", "J\u00f6rg \u6f22\u5b57 \U0001f600 " + "\u00fc" * 80)
        + ldif_text(b"sn", "\u00fc" * 80)
        + ldif_text(b"givenName", "J\u00f6rg\u00e9\u0301 \u6f22\u5b57 \U0001f600")
        + b"mail: joerg@example.org\n\n"
        b"dn: cn=Crew\nobjectclass: groupOfNames\ncn: Crew\n"
        b"member: cn=Ada Abbott,mail=ada@example.org\nmember: cn=letters\n"
    ),
    "old": (
        b"dn: cn=J\xf6rg M\xfcller,mail=j@example.org\r\nobjectclass: person\r\n"
        b"cn: M\xfcller, J\xf6rg\r\nsn: M\xfcller\r\ngivenname: J\xf6rg\r\n"
        b"mail: j@example.org\r\nxmozillaanyphone: 0105\r\n"
    ),
}

VCARD = {
    "plain": b"""BEGIN:VCARD\r
VERSION:2.1\r
N:Gill;Gus;Q;Dr.;Jr.\r
FN:Gus Gill\r
EMAIL;INTERNET:gus@example.org\r
EMAIL:gill@example.org\r
TEL;HOME;VOICE:+1 555 0106\r
TEL;CELL:0107\r
END:VCARD\r
""",
    # What is known to differ.
    "odd": b"""BEGIN:VCARD\r
VERSION:3.0\r
N:Cole;Cy;Q,R;Dr.;Jr.\r
FN: Cy Q Cole \r
item1.EMAIL:grouped@example.org\r
EMAIL: blank@example.org\r
TEL;TYPE=HOME:555\\;12\\,3\r
TEL;VALUE=uri;TYPE=WORK:tel:+1-555-0106;ext=1\r
TEL;TYPE=CELL:\r
END:VCARD\r
BEGIN:VCARD\r
VERSION:3.0\r
N:Hall;Hal;;;\r
FN:\r
END:VCARD\r
""",
    "several": b"""BEGIN:VCARD\r
VERSION:3.0\r
N;LANGUAGE=de:Andere;Fee;;;\r
N:First;Fay;;;\r
N:Last;Lee;;;\r
FN:Fay First\r
EMAIL:first@example.org\r
EMAIL;TYPE=PREF:second@example.org\r
END:VCARD\r
""",
    "nameless": b"BEGIN:VCARD\r\nVERSION:3.0\r\nN:Dee;Di;;;\r\nEMAIL:di@example.org\r\nEND:VCARD\r\n",
    "ends": b"BEGIN:VCARD\r\r\nVERSION:3.0\r\r\nN:Eck;Ed;;;\r\r\nFN:Ed Eck\r\r\nEND:VCARD\r\r\n",
    "endless": b"BEGIN:VCARD\r\nVERSION:4.0\r\nFN:Flo Fox\r\nEMAIL:flo@example.org\r\n",
}
