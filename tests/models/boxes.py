"""The boxes that a report shows, and what is written of them in a play's transcript."""

from dataclasses import dataclass

SUPPORT_ADDRESS = "support@tallybrook.example"
ANYTHING = "\0"  # in a box's text: words that are the program's own affair
ESCAPES = {'"': '\\"', "\\": "\\\\", "\n": "\\n", "\r": "\\r", "\t": "\\t"}


@dataclass(frozen=True)
class Box:
    title: str
    text: str
    icon: str = "none"
    buttons: str = "OK"

    def line(self):
        default = self.buttons.split("|")[0]
        return (f"box title={quoted(self.title)} icon={self.icon} buttons={self.buttons} default={default} "
                f"text={quoted(self.text)}")


def quoted(text):
    return '"' + "".join(ESCAPES.get(letter, letter) for letter in text) + '"'


def lines(*parts):
    return "\r\n".join(parts)


def database_error(failure, module):
    """The box of a failed statement; `module` with its full stop."""
    description = ANYTHING if failure.description is None else failure.description
    return Box("Database Error", lines(
        f"Error Number: {failure.number}",
        f"Error: {description}",
        f"Module: {module}",
        f"If this persists, please send email to {SUPPORT_ADDRESS} with this error information."), "critical")
