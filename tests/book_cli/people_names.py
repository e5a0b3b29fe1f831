"""Names of nobody in four alphabets, and the ways in which one name is spelled.

Family names are syllables thrown together. No two families are a typing error apart, so nobody is like another
by chance."""

import unicodedata

ALPHABETS = "LGCJ"  # Latin, Greek, Cyrillic, Japanese
GIVEN = {
    "L": "Ada Ben Cleo Dirk Emil Flora Gustav Hilde Ingrid Jonas Karla Ludwig Moritz Nora Ottilie".split(),
    "G": "Ανδρεας Βασιλης Γιωργος Δημητρα Ελενη Ζωη Ηλιας Θεοδωρα Ιφιγενεια Κωστας Λευτερης".split(),
    "C": "Анна Борис Вера Глеб Дарья Егор Жанна Захар Ирина Кирилл Людмила Максим".split(),
    "J": "明子 健太 由美 誠司 春香 大輔 直樹 真央 俊介 千夏".split(),
    "K": "ガブリエル デボラ ベンジャミン グスタフ ドロテア バルバラ".split(),
}
ONSETS = {
    "L": "b d f g h k l m n p r s t v w z br dr gr kr st tr".split(),
    "G": "β γ δ ζ θ κ λ μ ν ξ π ρ σ τ φ χ".split(),
    "C": "б в г д ж з к л м н п р с т ф х ц ч ш".split(),
    "J": list("山川田森林石松竹梅原野沢池村橋島岡谷坂井木本中大小上下東西南北高浜崎藤佐伊加宮関堀星丸平今福豊永安吉久武成片黒白青赤金銀光秋冬夏雪風月日朝夕米麦花草根葉"),
    "K": list("アイウエオサシスセソタチツテトナニヌネノマミムメモラリルレロ"),
}
VOWELS = {"L": "aeiou", "G": "αεηιουω", "C": "аеиоу", "J": [""], "K": [""]}
ENDS = {"L": ["nar", "mok", "sel", "tun"], "G": ["πος", "νης", "κας"], "C": ["ков", "нин", "ленко"], "J": [""],
        "K": [""]}
SYLLABLES = {"L": 3, "G": 3, "C": 3, "J": 3, "K": 5}
# The name of a domain in each alphabet, of letters that every edition of the rules writes the same way.
DOMAINS = {"L": "bücherei", "G": "βιβλια", "C": "книги", "J": "図書館"}
DOMAINS_WITHOUT_ACCENTS = {"L": "bucherei"}


def less_a_letter(word):
    """The word, and what is left of it without one letter. Words that have none of these in common are more than
    one typing error apart."""
    return {word} | {word[:i] + word[i + 1:] for i in range(len(word))}


class Names:
    def __init__(self, rng):
        self._rng = rng
        self._taken = set()

    def given(self, alphabet, other_than=()):
        return self._rng.choice([name for name in GIVEN[alphabet] if name not in other_than])

    def person(self, alphabet):
        """(given, family) of somebody new; K is Japanese in katakana."""
        while True:
            family = "".join(self._rng.choice(ONSETS[alphabet]) + self._rng.choice(VOWELS[alphabet])
                             for _ in range(SYLLABLES[alphabet])) + self._rng.choice(ENDS[alphabet])
            if self._taken.isdisjoint(less_a_letter(family)):
                self._taken |= less_a_letter(family)
                return self.given(alphabet), family.capitalize()


ACCENTS = {"L": dict(zip("aeouinc", "áéöüîñç")), "G": dict(zip("αεηιουω", "άέήίόύώ")),
           "C": {"е": "ё", "а": "а\u0301", "о": "о\u0301", "и": "и\u0301", "у": "у\u0301"}}


def accented(word, alphabet):
    """The word with one accent on a letter after the first."""
    for i, letter in enumerate(word):
        if i and letter in ACCENTS[alphabet]:
            return word[:i] + ACCENTS[alphabet][letter] + word[i + 1:]
    raise ValueError(word)


def decomposed(word):
    return unicodedata.normalize("NFD", word)


HALF = {unicodedata.normalize("NFKC", chr(code)): chr(code) for code in range(0xFF66, 0xFF9E)}
HALF.update({"\u3099": "\uff9e", "\u309a": "\uff9f"})


def other_width(word):
    """Latin letters as wide as Japanese ones, katakana as narrow as Latin ones."""
    wide = "".join(chr(ord(letter) + 0xFEE0) if "!" <= letter <= "~" else letter for letter in word)
    return wide if wide != word else "".join(HALF.get(letter, letter) for letter in decomposed(word))


def mistyped(word, alphabet, way):
    """One letter after the second is changed, left out or added; the first ones often are what is looked up."""
    middle = len(word) // 2
    letter = {"L": "x", "G": "ψ", "C": "щ", "K": "ヨ"}[alphabet]
    return word[:middle] + ("" if way == "out" else letter) + word[middle + (way != "added"):]
