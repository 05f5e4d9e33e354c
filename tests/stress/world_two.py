# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Case: two programs edit one library at the same time. Each scale is saved, or its program reports the reason."""

import os

import world_use as use
from world_cases import case, require

ROUNDS = 5
IN_USE = "file already in use"


class Musician:
    """The user of one program, through the accessibility bus: only one program can have the keyboard focus."""

    def __init__(self, session, number):
        self._session = session
        self._shown = session.program, session.window, session.application
        self.program = session.program
        self._name = ("First", "Second")[number]
        self.editor = None
        self.messages = []

    def select(self):
        """Makes this program the current one of the session."""
        self._session.program, self._session.window, self._session.application = self._shown
        return self._session

    def press(self, name, window=None):
        session = self.select()
        session.press(session.wait(lambda: session.showing(
            "push button", lambda node: node.get_name().replace("&", "") == name, window), f"the button {name}"))

    def open(self):
        self.press("Editor")
        self.editor = self.select().wait(lambda: self.select().window_named("Scales"), "an editor")
        self.press("Modify", self.editor)

    def type_scale(self, round_):
        """Adds a record and types its name, without saving."""
        session, name = self.select(), self.scale(round_)
        self.press("Add", self.editor)
        box = session.wait(lambda: use.field(session, self.editor, "Scale Name"), "the box for the name")
        session.wait(lambda: session.text_of(box) == "", "the new record")
        session.wait(lambda: session.atspi.EditableText.set_text_contents(box, name), "the name")
        session.wait_for_text(box, name)

    def scale(self, round_):
        return f"{self._name} scale {round_}"

    def apply(self):
        self.press("Apply", self.editor)

    def question(self):
        """The button that confirms the changes."""
        session = self.select()
        box = session.wait(session.box, "the question of Apply")[0]
        return session.wait(lambda: session.showing("push button", session.is_consent, box), "its button")

    def wait_for_saved(self, round_, path):
        """Waits until the scale is saved; chooses Apply again if the library was in use."""
        session = self.select()
        session.messages = self.messages

        def is_saved():
            if use.rows(path, use.ROW, self.scale(round_)):
                return True
            if self.messages and IN_USE in self.messages[-1]:
                self.messages.append("Apply again")
                self.press("Modify", self.editor)
                self.apply()
            return False

        session.until(is_saved, f"{self.scale(round_)} in the library")
        session.until(lambda: session.showing("push button", lambda node: node.get_name().replace("&", "") == "Modify",
                                              self.editor), "the editor at rest")
        self.press("Modify", self.editor)


@case("two programs", short=True)
def two_programs(session):
    stage = session.new_stage()
    path = os.path.join(stage, "TonalithDB97.mdb")
    earlier = use.require_intact(path)
    musicians = []
    for number in range(2):
        session.open_another(stage) if musicians else session.start(stage)
        musicians.append(Musician(session, number))
    session.others = [(musicians[0].program, None)]
    for musician in musicians:
        musician.open()
    for round_ in range(ROUNDS):
        for musician in musicians:
            musician.type_scale(round_)
        for musician in musicians:
            musician.apply()
        # Both programs write at the same time.
        for button in [musician.question() for musician in musicians]:
            session.press(button)
        for musician in musicians:
            musician.wait_for_saved(round_, path)
    scales = [musician.scale(round_) for round_ in range(ROUNDS) for musician in musicians]
    names = use.require_intact(path, [*earlier, *scales])
    require(len(names) == len(earlier) + len(scales), f"{len(names)} scales of {len(earlier)} and {len(scales)}")
    for musician in musicians:
        musician.press("Close", musician.editor)
        session.until(lambda: not session.window_named("Scales"), "the end of the editor")
    while programs := [musician.program for musician in musicians if musician.program.returncode is None]:
        session.close(programs)
