"""Makes folders of mail in which every address is known.

Each person is in one place of one message: a header, a text in some coding and some set, a link, an
enclosed message. Beside the people stand things that look like them and are none.
"""

import base64
import quopri
import random

NAMES = ("Ada", "Bo", "Zoë", "Jörg", "Łucja", "Иван", "李", "O'Neil")
LAST = ("Abbott", "Berg", "Müller", "Čapek", "Ng", "Петров", "van der Meer")
CHARSETS = ("utf-8", "utf-16", "iso-8859-15", "windows-1251", "koi8-r", "iso-2022-jp", "gb18030", "utf-7")
DOMAINS = ("example.org", "mail.example.com", "bücher.example", "x-y.example", "firm.example")
NONE = (
    "Message-ID: <nobody{0}@example.org>\n  <nobody{0}x@example.org>",
    "> References: <nobody{0}@example.org>",
    "In message <nobody{0}@example.org> somebody wrote",
    "picture{0}@2x.png",
    "[cid:nobody{0}@example.org]",
    "X-Nobody: nobody{0}@example.org",
    "https://lists.example.org/nobody{0}@example.org",
)


def encoded(word):
    return "=?utf-8?b?" + base64.b64encode(word.encode()).decode() + "?="


def ascii_form(address):
    name, domain = address.split("@")
    return f"{name}@{domain.encode('idna').decode()}".lower()


class Folder:
    """Messages, and the people in them: folded address to name, None for none."""

    def __init__(self, seed):
        self.chance = random.Random(seed)
        self.people = {}
        self.number = 0

    def person(self, name):
        """A new one, as it is written in a text or a header."""
        self.number += 1
        address = f"{self.chance.choice('abcxyz')}.{self.number}@{self.chance.choice(DOMAINS)}"
        self.people[ascii_form(address)] = name
        return address

    def named(self):
        name = f"{self.chance.choice(NAMES)} {self.chance.choice(LAST)}"
        return name, self.person(name)

    def header(self):
        name, address = self.named()
        return self.chance.choice(
            (
                f"{encoded(name)} <{address}>",
                f"{encoded(name)} < {address} >",
                f"\"{encoded(name)}\"\n <{address}>",
                f"{address} ({encoded(name)})",
                f"Crew: {encoded(name)} <{address}>;",
            )
        )

    def text(self):
        bare = self.person(None)
        around = self.chance.choice(
            ("{}", "<{}>", "see {}.", "({})", "mailto:{}", "'{}'", "请写{}谢谢", "{},", "*{}*", "x {}; y")
        )
        return f"Hello\n{self.chance.choice(NONE).format(self.number)}\n\n{around.format(bare)}\n"

    def part(self):
        """A body with the fields that say how it is written."""
        text = self.text()
        subtype = "plain"
        if self.chance.randrange(3) == 0:
            subtype = "html"
            link = self.person(None).replace("@", self.chance.choice(("@", "%40", "&#64;")))
            escaped = text.replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;")
            block = self.chance.choice(("pre", "p"))
            if block == "p":
                escaped = escaped.replace("\n ", " ").replace("\n", "<br>\n")
            text = f"<html><{block}>{escaped}</{block}><a href=\"mailto:{link}\">x</a>"
        charset = self.chance.choice(CHARSETS)
        try:
            data = text.encode(charset)
        except UnicodeEncodeError:
            charset, data = "utf-8", text.encode()
        # Line ends of text alone may change on the way.
        coding = "base64" if charset == "utf-16" else self.chance.choice(("quoted-printable", "base64"))
        coded = quopri.encodestring(data) if coding != "base64" else base64.encodebytes(data)
        return (
            f"Content-Type: text/{subtype}; charset={charset}\n"
            f"Content-Transfer-Encoding: {coding}\n\n".encode() + coded
        )

    def message(self, depth=0):
        self.number += 1
        fields = "".join(
            f"{field}: {self.header()}\n"
            for field in self.chance.sample(("From", "To", "Cc", "Bcc", "Reply-To", "Sender", "Resent-To"), 3)
        )
        head = (
            f"Received: for <nobody{self.number}@example.org>\nMessage-ID: <nobody{self.number}@example.org>\n"
            f"{fields}Date: Thu, 1 Jan 1998 10:00:00 +0000\n"
        ).encode()
        kind = self.chance.randrange(4)
        if kind < 2 or depth > 2:
            return head + self.part()
        bound = f"b{self.number}"
        picture = b"Content-Type: image/png; name=nobody@example.org\nContent-ID: <nobody@example.org>\n\nx@example.org"
        inner = b"Content-Type: message/rfc822\n\n" + self.message(depth + 1) if kind == 3 else self.part()
        parts = b"".join(f"\n--{bound}\n".encode() + one for one in (self.part(), picture, inner))
        return head + f"Content-Type: multipart/mixed; boundary={bound}\n".encode() + parts + f"\n--{bound}--\n".encode()
