# SPDX-License-Identifier: MIT
"""Texts to copy and to paste: many scripts, emoji with joiners and skin tones, right to left."""

LINES = (
    "The quick brown fox jumps over the lazy dog.",
    "Zwölf Boxkämpfer jagen Viktor quer über den großen Sylter Deich.",
    "Съешь же ещё этих мягких французских булок, да выпей чаю.",
    "Ξεσκεπάζω τὴν ψυχοφθόρα βδελυγμία.",
    "いろはにほへと ちりぬるを 我が世誰ぞ 常ならむ",
    "敏捷的棕色狐狸跳过了懒狗。",
    "다람쥐 헌 쳇바퀴에 타고파.",
    "صِف خَلقَ خَودِ كَمِثلِ الشَمسِ إِذ بَزَغَت",
    "דג סקרן שט בים מאוכזב ולפתע מצא חברה",
    "ऋषियों को सताने वाले दुष्ट राक्षसों के राजा रावण",
    "😀 👩‍👩‍👧‍👦 👍🏽 🇪🇺 🏳️‍🌈 e\u0301 𝒳𝒴𝒵 ∑∫√",
)


def mixed_text(size):
    """A text of exactly size bytes in UTF-8, with lines of a human length."""
    lines = "\n".join(LINES) + "\n"
    block = lines.encode()
    data = (block * (size // len(block) + 1))[:size]
    whole = data.decode("utf-8", "ignore").encode()
    return whole + b"." * (size - len(whole))


SIZES = {"1 B": 1, "4 KB": 4096, "1 MB": 1 << 20}
