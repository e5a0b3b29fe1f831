"""Cards in each dialect, made up: what the public ones hold, in a few lines."""

CARDS = {
    "old": b"""BEGIN:VCARD\r
VERSION:2.1\r
N;CHARSET=windows-1252;ENCODING=QUOTED-PRINTABLE:M=FCller;J=F6rg\r
FN;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:J=C3=B6rg=\r
 M=C3=BCller\r
TEL;HOME;VOICE:+1 555 0100\r
EMAIL;INTERNET;PREF:j@example.org\r
LABEL;ENCODING=QUOTED-PRINTABLE:1 Road=0D=0ATown\r
PHOTO;ENCODING=BASE64;JPEG:\r
    /9j/4AAQSkZJRg==\r
\r
X-ODD;A;B=c:d;e\\f\r
END:VCARD\r
""",
    "middle": b"""BEGIN:VCARD
VERSION:3.0
UID:1
N:Abbott;Ada;;Dr.;
FN:Ada Abbott
NICKNAME:ada,abby
item1.EMAIL;TYPE=INTERNET,PREF:ada@example.org
item1.X-ABLabel:row\\, row
ADR;TYPE=HOME:;;1 Road\\, 2nd floor;Town;;12345;Land
BDAY:1980-04-12
NOTE:one\\ntwo\\; thr
 ee
CLASS:PRIVATE
X-ANNIVERSARY:2001-02-03
a line that is no field
END:VCARD
BEGIN:VCARD
VERSION:3.0
N:Crew;;;;
FN:Crew
X-ADDRESSBOOKSERVER-KIND:group
X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:1
END:VCARD
""",
    "new": b"""BEGIN:VCARD\r
VERSION:4.0\r
UID:urn:uuid:4fbe8971-0bc3-424c-9c26-36c3e1eff6b1\r
FN:Bo Berg\r
N:Berg;Bo;;;\r
GENDER:M;he\r
ANNIVERSARY:20010203\r
TEL;VALUE=uri;TYPE="voice,home";PREF=1:tel:+1-555-0101\r
EMAIL;PREF=1:bo@example.org\r
PHOTO:data:image/png;base64,iVBORw0KGgo=\r
KEY:https://example.org/key\r
LANG;PREF=2:de\r
KIND:individual\r
END:VCARD\r
""",
}
