"""Writing fonts: equal fonts and dates give equal bytes."""

from __future__ import annotations

import io

from fontTools.ttLib import TTFont

MAC_EPOCH_OFFSET = 2082844800  # 1904 to 1970, in seconds


def as_file(font: TTFont) -> io.BytesIO:
    stream = io.BytesIO()
    font.save(stream, reorderTables=True)
    stream.seek(0)
    return stream


def dated_bytes(font: TTFont, seconds: int) -> bytes:
    """The finished file, dated `seconds` after 1970."""
    font.recalcTimestamp = False
    font["head"].created = font["head"].modified = seconds + MAC_EPOCH_OFFSET
    return as_file(font).getvalue()
