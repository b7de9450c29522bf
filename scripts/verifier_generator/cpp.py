"""C++ names and literals."""

import re
import unicodedata

KEYWORDS = {"and", "auto", "bool", "break", "case", "catch", "char", "class", "const", "continue", "default",
            "delete", "do", "double", "else", "enum", "explicit", "export", "extern", "false", "float", "for",
            "friend", "goto", "if", "inline", "int", "long", "namespace", "new", "not", "operator", "or",
            "private", "protected", "public", "register", "return", "short", "signed", "sizeof", "static",
            "struct", "switch", "template", "this", "throw", "true", "try", "typedef", "union", "unsigned",
            "using", "virtual", "void", "volatile", "while", "xor"}


def is_name(text):
    return (re.fullmatch(r"[A-Za-z][A-Za-z0-9_]*", text) is not None and "__" not in text
            and text not in KEYWORDS)


def words(text):
    """ASCII letters and digits of a text, other characters as one underscore; accents are dropped."""
    plain = unicodedata.normalize("NFKD", text).encode("ascii", "ignore").decode()
    return re.sub(r"[^A-Za-z0-9]+", "_", plain).strip("_")


def camel(text):
    return "".join(word[:1].upper() + word[1:] for word in words(text).split("_"))


def _escaped(text, wide):
    out, previous = [], ""
    for c in text:
        code = ord(c)
        if c in "\"\\":
            out.append("\\" + c)
        elif c == "\n":
            out.append("\\n")
        elif c == "\t":
            out.append("\\t")
        elif c == "?" and previous == "?":
            out.append("\\?")  # two question marks begin what older compilers replace
        elif 32 <= code < 127:
            out.append(c)
        elif code < 32 or 127 <= code < 160:
            out.append(f"\\{code:03o}" if wide else "".join(f"\\{b:03o}" for b in c.encode()))
        elif wide:
            out.append(f"\\u{code:04x}" if code < 0x10000 else f"\\U{code:08x}")
        else:
            out.append("".join(f"\\{b:03o}" for b in c.encode()))
        previous = c
    return "".join(out)


def literal(text):
    return f'wxT("{_escaped(text, True)}")'


def narrow(text):
    """A literal of the text's UTF-8 bytes, for the tests."""
    return f'"{_escaped(text, False)}"'


def text_list(texts):
    return "{" + ", ".join(literal(text) for text in texts) + "}"
