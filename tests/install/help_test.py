"""Reads a help file with another program than the one that wrote it: help_test.py READER FILE UNITS"""

import pathlib
import subprocess
import sys
import tempfile


def main(reader: str, file: str, units: str) -> None:
    other = {"Metric": "Inch", "Inch": "Metric"}[units]
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run([reader, file, folder], check=True, stdout=subprocess.DEVNULL)
        root = pathlib.Path(folder)
        page = (root / "index.html").read_text(encoding="utf-8")
        contents = (root / "contents.hhc").read_text(encoding="utf-8")
        system = (root / "#SYSTEM").read_bytes()
        assert page.endswith("</html>\n")
        assert f"({units})</title>" in page and f"<th>{other}</th>" not in page
        assert ("mm/min" in page) == (units == "Metric")
        assert "host developers" not in page and "**" not in page and "|" not in page
        assert 'value="Using it"' in contents and 'id="using-it"' in page
        assert b"index.html\0" in system and b"contents.hhc\0" in system
        assert page.count("<img") == page.count(f"-{units.lower()}.png") > 0
        for part in page.split('<img src="')[1:]:
            assert (root / part.split('"')[0]).stat().st_size > 0


if __name__ == "__main__":
    main(*sys.argv[1:])
