"""Made-up books that hold what the tables of programs have room for, and more than that."""

CARD = r"""BEGIN:VCARD
VERSION:3.0
UID:ada
N:Abbott;Ada;Berta,Cleo;Dr.;MA
FN:Dr. Ada "Countess" Abbott
NICKNAME:ada,aa
EMAIL;TYPE=WORK:ada@work.example.org
EMAIL;TYPE=HOME,PREF:ada@home.example.org
EMAIL:ada3@example.org
EMAIL:ada4@example.org
TEL;TYPE=HOME,VOICE:+1 555 0100
TEL;TYPE=HOME:+1 555 0101
TEL;TYPE=HOME:+1 555 0102
TEL;TYPE=WORK:+1 555 0103
TEL;TYPE=CELL:+1 555 0104
TEL;TYPE=FAX,WORK:+1 555 0105
TEL;TYPE=FAX,HOME:+1 555 0106
TEL;TYPE=PAGER:+1 555 0107
TEL;TYPE=CAR:+1 555 0108
TEL;TYPE=ISDN:+1 555 0109
TEL:+1 555 0110
item1.TEL:+1 555 0111
item1.X-ABLabel:Boat house
item2.URL:https://boat.example.org
item2.X-ABLabel:_$!<HomePage>!$_
ADR;TYPE=HOME:Box 7;Shed,Left,Back;Mill Lane 3\nRear;Ulm;BW;89073;Germany
ADR;TYPE=WORK:;;Quay 1;Bonn;;53111;
ADR;TYPE=WORK:;;Quay 2;Kiel;;24103;
ADR:;;Third Street;Rome;;;
LABEL;TYPE=HOME:Ada Abbott\nMill Lane 3\nUlm
ORG:Rowing\; Club;Boats;Oars
TITLE:Cox
ROLE:Steers
NOTE:Rows\,\nand "sings"\; \\ often
NOTE:Second note
BDAY:1980-04-12
ANNIVERSARY:20050630
CATEGORIES:Rowers,a\;b,x ::: y
URL;TYPE=WORK:https://work.example.org
URL:https://example.org
IMPP:xmpp:ada@example.org
X-SPOUSE:Bob
RELATED;TYPE=friend;VALUE=text:Cy
item3.X-ABRELATEDNAMES:Dan
item3.X-ABLabel:_$!<Manager>!$_
item4.X-ABDATE:2005-07-01
item4.X-ABLabel:First boat
X-FOO:Any thing
PHOTO;ENCODING=b;TYPE=JPEG:/9j/4AAQ
KEY;ENCODING=b:AAAA
TZ:+01:00
END:VCARD
BEGIN:VCARD
VERSION:3.0
UID:bo
N:;;;;
FN:Bo Bell
EMAIL:bo@example.org
BDAY:--0412
END:VCARD
BEGIN:VCARD
VERSION:3.0
UID:firm
N:;;;;
FN:Firm & Sons
ORG:Firm & Sons
TEL;TYPE=WORK:5
BDAY;VALUE=text:circa 1800
END:VCARD
BEGIN:VCARD
VERSION:3.0
UID:joerg
N:Müller;Jörg;;;
FN:Müller, Jörg
EMAIL:joerg@example.org
NOTE:€ and ž are letters of Windows
END:VCARD
BEGIN:VCARD
VERSION:3.0
UID:li
N:李;明;;;
FN:李明
EMAIL:li@example.org
TITLE:Łódź
END:VCARD
BEGIN:VCARD
VERSION:3.0
UID:crew
FN:Crew
N:Crew;;;;
X-ADDRESSBOOKSERVER-KIND:group
X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:ada
X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:nobody
X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:inner
END:VCARD
BEGIN:VCARD
VERSION:3.0
UID:inner
FN:Inner
N:Inner;;;;
X-ADDRESSBOOKSERVER-KIND:group
X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:bo
X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:crew
END:VCARD
"""

LDIF = """dn: cn=Ada Abbott,mail=ada@example.org
objectclass: top
objectclass: person
cn: Ada Abbott
givenname: Ada
sn: Abbott
mail: ada@example.org
mozillaSecondEmail: ada2@example.org
telephonenumber: 1
homephone: 2
facsimiletelephonenumber: 3
pager: 4
mobile: 5
mozillaHomeStreet: Mill Lane 3
mozillaHomeLocalityName: Ulm
street: Quay 1
l: Bonn
o: Club
ou: Boats
title: Cox
custom1: One
description: Rows
shoeSize: 42

dn: cn=Bo,mail=bo@example.org
objectclass: person
cn: Bo
mail: bo@example.org

dn: cn=Crew
objectclass: groupOfNames
cn: Crew
member: cn=Ada Abbott,mail=ada@example.org
member: cn=Bo,mail=bo@example.org
"""


def write_all(folder):
    """The books as files of a folder; their paths."""
    books = {"club.vcf": CARD.replace("\n", "\r\n"), "club.ldif": LDIF,
             "many.vcf": "".join(f"BEGIN:VCARD\r\nVERSION:3.0\r\nN:;P{i};;;\r\nFN:P{i}\r\n" + "".join(
                 f"EMAIL:p{i}.{k}@example.org\r\nTEL:{i:04}{k:04}\r\n" for k in range(i)) + "END:VCARD\r\n"
                 for i in (1, 2, 5, 40))}
    for name, text in books.items():
        (folder / name).write_text(text, encoding="utf-8", newline="")
    return [folder / name for name in books]
