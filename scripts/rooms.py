"""The rooms of the tool, as cfgtool/rooms lists them, and the files in them."""

from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]


def floors() -> list[list[str]]:
    """The rooms of each floor, from the top."""
    lines = (ROOT / "cfgtool/rooms").read_text(encoding="utf-8").splitlines()
    return [line.split() for line in lines if not line.startswith("#")]


def folders() -> list[str]:
    """The folder of each room, relative to the repository."""
    return [f"cfgtool/{room}" for floor in floors() for room in floor]


def sources() -> list[str]:
    """The sources and headers of the tool, relative to the repository."""
    files = [path for folder in folders() for path in (ROOT / folder).iterdir() if path.suffix in (".cpp", ".h")]
    return sorted(str(path.relative_to(ROOT)) for path in files)
