# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Four call paths through the program, and the calls in them that go from a lower to a higher room.

A path lists the calls of a run without failures, as caller and callee. Where a call goes through an interface, a signal
or a stored function, the callee is the class that implements it or gave the function. The room of a class is the one
that defines it, so only this list depends on names: a bar separates the names that a class has in different checkouts.
A call with a name that the checkout lacks is reported and not counted.
"""

import re

from rooms import room_of_file

PATHS = {
    "record to disc": """
        DataControl::RunMove > RecordSet::MoveNext
        DataControl::UpdateBoundControls|DataControl::TakeRow > RecordSet::FieldValue
        DataControl::UpdateBoundControls|DataControl::TakeRow > MainControls::BindRecordFields|frmTonalith::BindControls
        DataControl::UpdateBoundControls|DataControl::TakeRow > frmTonalith::Label1_Change
        frmTonalith::UpdateForm > FretboardView::HideNotes
        frmTonalith::UpdateForm > FretboardView::ShowNotes
        FretboardView::ShowNotes > MainWindowScale::HasCurrentRecord|frmTonalith::HasCurrentRecord
        FretboardView::ShowNotes > MainWindowScale::ScaleIntervals|frmTonalith::ScaleIntervals
        MainWindowScale::ScaleIntervals|frmTonalith::ScaleIntervals > DataControl::FieldValue
        FretboardView::ShowNotes > MainWindowScale::AppendStepWord|frmTonalith::AppendStepWord
        FretboardView::ShowScaleNotes > NoteImage::SetPicture
        frmTonalith::UpdateForm > FretboardView::ShowNotesNames
        FretboardView::DrawNoteName > NoteImage::DrawName
    """,
    "click to sound": """
        NoteImage::NoteImage > FretboardView::FretboardView|FretboardView::BuildImages
        FretboardView::PlayOctaveNote > OctaveNotePlayer::Play
        OctaveNotePlayer::Read > PosixFileInput::Open
        OctaveNotePlayer::Read > WaveFile::ReadData
        OctaveNotePlayer::MakeWindow > WindowMessageQueue::CreateWindow|NoticeQueue::CreateWindow
        OctaveNotePlayer::Play > ThreadedWaveOutput::Open
        OctaveNotePlayer::Play > ThreadedWaveOutput::Write
        OctaveNotePlayer::Play > FretboardView::NoteStarted
        ThreadedWaveOutput::Engine > OpenAlMixer::Start
        OpenAlMixer::Start > OpenAlDevice::Play
        ThreadedWaveOutput::Engine > WindowMessageQueue::PostMessage|NoticeQueue::PostNotice
        WindowMessageQueue::PostMessage|NoticeQueue::PostNotice > QtMessageBridge::QtMessageBridge|QtNoticeJoint::QtNoticeJoint
        WindowMessageQueue::Dispatch|NoticeQueue::Dispatch > OctaveNotePlayer::MakeWindow
        OctaveNotePlayer::End > FretboardView::NoteEnded
    """,
    "pack to rows": """
        frmTonalith::cmdInstall_Click > PackInstall::Run
        PackInstall::Run > DataPackImport::GetAvailableDataPacks
        DataPackImport::ImportDataPack > PackMerge::Run
        PackMerge::Run > Connection::Open
        ChildProcess::Read|ReadingProcess::Read > DataPackImport::ImportDataPack
        DataPackImport::ImportDataPack > PackInstall::ReadingProgress
        PackMerge::MergeTable > NewRows::Add
        PackMerge::MergeTable > DataPackImport::ImportDataPack
        DataPackImport::ImportDataPack > PackInstall::ImportProgress
        DataPackImport::ImportDataPack > QtMsgBox::Show
        DataPackImport::GetAvailableDataPacks > PackInstall::DataPackDone
        PackInstall::DataPackDone > frmTonalith::cmdInstall_Click
        MainWindowInstall::Run|frmTonalith::cmdInstall_Click > DataControl::Refresh
    """,
    "key press to saved row": """
        FieldBinding::TakeTyped > DataControl::SetFieldValue
        DataControl::SetFieldValue > RecordSet::SetFieldValue
        FieldBinding::TakeTyped > frmScales::FieldTyped|frmScales::TakeTyped
        FieldBinding::TakeTyped > frmScales::txtFields_Change
        frmScales::cmdUpdate_Click > DataControl::UpdateBatch
        DataControl::UpdateBatch > RecordSet::UpdateBatch
        RecordSet::UpdateBatch > Engine::Execute
        DataControl::UpdateBoundControls|DataControl::TakeRow > FieldBinding::TakeValue
        DataControl::UpdateBoundControls|DataControl::TakeRow > frmScales::RecordMoved|frmScales::TakeMove
        DataControl::MoveAndUpdate|DataControl::MoveAndTake > frmScales::RecordWritten|frmScales::WireHandlers
        frmScales::RecordWritten|frmScales::WireHandlers > frmTonalith::EditUpdates
        frmTonalith::cmdUpdate_Click > DataControl::Refresh
        DataControl::UpdateBoundControls|DataControl::TakeRow > MainControls::BindRecordFields|frmTonalith::BindControls
    """,
}


def class_rooms(root, rooms, files):
    """Maps the name of each class of src/ to its room, and that of each file of the room to the words in it."""
    found = {}
    pattern = re.compile(r"^(?:class|struct) (?:\w+::)*(\w+)\b[^;]*$", re.MULTILINE)
    for path in sorted(file for listed in files.values() for file in listed):
        room = room_of_file(rooms, path)
        for name in pattern.findall((root / path).read_text(encoding="utf-8")):
            found.setdefault(name, room)
    return found


def upward_calls(root, rooms, files):
    """For each path: the upward calls, the number of calls found, and the calls whose names are missing, as texts."""
    of_class = class_rooms(root, rooms, files)
    words = {}
    for room, listed in files.items():
        words[room] = set()
        for path in listed:
            words[room].update(re.findall(r"\w+", (root / path).read_text(encoding="utf-8")))
    result = {}
    for name, calls in PATHS.items():
        upward, missing, count = [], [], 0
        for call in filter(None, (line.strip() for line in calls.splitlines())):
            ends = [_room_of(end, of_class, words) for end in call.split(" > ")]
            if None in ends:
                missing.append(call)
                continue
            count += 1
            if ends[0].rank < ends[1].rank:
                upward.append(f"{call} ({ends[0].name} > {ends[1].name})")
        result[name] = (upward, count, missing)
    return result


def _room_of(names, of_class, words):
    """The room of the first of `names` (Class::Function, separated by bars) that the checkout has; None for none."""
    for name in names.split("|"):
        class_name, function = name.split("::")
        room = of_class.get(class_name)
        if room is not None and function in words[room.name]:
            return room
    return None
