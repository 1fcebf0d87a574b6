#!/usr/bin/python3
"""What `cmake --install` leaves, and what can be done with it. BUILD names the build folder, VERSION the project's version,
LEFT_OUT what could not be built here."""

import fnmatch
import hashlib
import os
import re
import shutil
import types
import unittest
from pathlib import Path

from staged import BUILD, LEFT_OUT, PACKAGING, REPOSITORY, VERSION, Test, files_below, listed_files, on_bare_machine, run

NO_SERVICE = "Set fan level  failed, error code: 0x40000000"


class files(Test):
    def test_are_those_of_the_list(self):
        expected = {row.path: row.mode for row in listed_files()}
        self.maxDiff = None
        self.assertEqual(files_below(self.install()), expected)

    def test_of_each_component_are_those_of_the_list(self):
        for component in sorted({row.component for row in listed_files()}):
            with self.subTest(component):
                expected = {row.path for row in listed_files() if row.component == component}
                self.assertEqual(set(files_below(self.install(component, component))), expected)

    def test_of_the_build_are_left_as_they_were(self):
        def digests():
            return {path: hashlib.sha256(path.read_bytes()).hexdigest() for name in ("bin", "lib")
                    for path in (BUILD / name).iterdir() if path.is_file()}
        before = digests()
        self.assertIn(BUILD / "bin/cfgtool", before)
        self.install()
        self.assertEqual(digests(), before)

    def test_link_to_each_other_where_they_link(self):
        """The pages of the documentation, too."""
        stage = self.install()
        for path in stage.rglob("*"):
            if path.is_symlink():
                self.assertTrue(path.exists(), f"{path} leads nowhere")
        links = [(page, link) for page in (stage / "share/doc/cfgtool").glob("*.md")
                 for link in re.findall(r"\]\(([^)#:]+)", page.read_text())]
        self.assertGreater(len(links), 2)
        for page, link in links:
            if "simulator" not in LEFT_OUT or link != "ipmcd.md":
                self.assertTrue((page.parent / link).exists(), f"{page.name}: {link}")


class tool(Test):
    def answer(self, program: Path, *words: str) -> str:
        return run(*on_bare_machine(program, *words, folders=(BUILD, self.folder)), env=self.environment).stdout

    def test_finds_its_library_wherever_the_two_are(self):
        stage = self.install("stage", "tool", "platform")
        moved = stage.rename(self.folder / "elsewhere")
        self.assertIn(NO_SERVICE, self.answer(moved / "bin/cfgtool", "-d", "fanlevel", "-v", "60"))
        self.assertEqual(self.answer(moved / "bin/cfgtool"), self.answer(BUILD / "bin/cfgtool"))
        (moved / "lib").rename(self.folder / "lost")
        with self.assertRaisesRegex(AssertionError, "libzentro_platform.so.1: cannot open shared object file"):
            self.answer(moved / "bin/cfgtool")

    def test_looks_in_no_other_folder(self):
        """An empty entry in its path would be the folder that it is started in."""
        stage = self.install("stage", "tool", "platform")
        dynamic = run("readelf", "-dW", stage / "bin/cfgtool").stdout
        self.assertEqual(re.findall(r"R(?:UN)?PATH.*\[(.*)\]", dynamic), ["$ORIGIN/../lib"])

    def test_goes_without_its_path_where_the_loader_finds_the_library(self):
        """cmake -DCMAKE_SKIP_INSTALL_RPATH=ON, as the recipe for Yocto has it."""
        run("cmake", "-G", "Ninja", "-S", REPOSITORY, "-B", self.folder / "build", "-DCMAKE_SKIP_INSTALL_RPATH=ON",
            "-DCFGTOOL_TESTS=OFF", "-DCFGTOOL_CONTROLLER=OFF", "-DCMAKE_INSTALL_LIBDIR=lib64", env=os.environ)
        rules = (self.folder / "build/build.ninja").read_text()
        self.assertNotIn("ORIGIN", rules)
        self.assertIn("libzentro_platform.so.1", rules)


class consumers(Test):
    """Programs outside the tree, against the staged files, which lie where they were never meant to be."""

    OUTPUT = "0 cli.conf\n"
    SOURCE = Path(__file__).resolve().parent / "consumer"

    def setUp(self):
        super().setUp()
        self.stage = self.install("stage", "platform", "dev").rename(self.folder / "moved")

    def configure(self, version: str):
        run("cmake", "-G", "Ninja", "-S", self.SOURCE, "-B", self.folder / "build", f"-DWANTED_VERSION={version}",
            f"-DCMAKE_PREFIX_PATH={self.stage}", env=self.environment)

    def test_find_the_package_with_cmake(self):
        self.configure(VERSION)
        run("cmake", "--build", self.folder / "build", env=self.environment)
        self.assertEqual(run(self.folder / "build/consumer", env=self.environment).stdout, self.OUTPUT)

    def test_are_told_of_another_version(self):
        for version in ("99.0", "0.0"):  # before 1.0 each minor version may change what there is
            with self.assertRaisesRegex(AssertionError, "compatible with requested version"):
                self.configure(version)

    def test_find_the_library_with_pkg_config(self):
        if shutil.which("pkg-config") is None:
            self.skipTest("pkg-config is not installed")
        environment = self.environment | {"PKG_CONFIG_PATH": str(self.stage / "lib/pkgconfig")}
        self.assertEqual(run("pkg-config", "--modversion", "zentro-platform", env=environment).stdout, VERSION + "\n")
        flags = run("pkg-config", "--cflags", "--libs", "zentro-platform", env=environment).stdout.split()
        program = self.folder / "consumer"
        run("cc", "-Wall", "-Werror", "-o", program, self.SOURCE / "consumer.c", *flags, env=self.environment)
        found = self.environment | {"LD_LIBRARY_PATH": str(self.stage / "lib")}
        self.assertEqual(run(program, env=found).stdout, self.OUTPUT)


class elsewhere(Test):
    """The packaging for other systems, against the list and the real installation."""

    MAKEFILE = PACKAGING / "buildroot/package/cfgtool/cfgtool.mk"
    CONFIG = MAKEFILE.with_name("Config.in")

    def buildroot(self, target: str, *settings: str) -> str:
        """Has make carry out what the package says, with the few words of Buildroot that it uses."""
        frame = self.folder / "Makefile"
        frame.write_text(
            "define sep\n\n\nendef\n"
            "qstrip = $(strip $(subst \",,$(1)))\n"
            "BR2_CMAKE = cmake\nINSTALL = install\n"
            f"BR2_EXTERNAL_CFGTOOL_PATH = {PACKAGING}/buildroot\n"
            f"CFGTOOL_BUILDDIR = {BUILD}\n"
            f"STAGING_DIR = {self.folder}/staging\nTARGET_DIR = {self.folder}/target\n"
            f"include {PACKAGING}/buildroot/external.mk\n"
            "staging: ; $(CFGTOOL_INSTALL_STAGING_CMDS)\n"
            "target: ; $(CFGTOOL_INSTALL_TARGET_CMDS)\n"
            "options: ; @echo $(CFGTOOL_CONF_OPTS)\n"
            "version: ; @echo $(CFGTOOL_VERSION)\n"
            "users: ; $(info $(CFGTOOL_USERS)) @:\n")
        return run("make", "-s", "-f", frame, target, *settings, env=self.environment).stdout

    def installed_by_buildroot(self, target: str, *settings: str) -> set[str]:
        self.buildroot(target, *settings)
        return set(files_below(self.folder / target / "usr"))

    def components(self, *names: str) -> set[str]:
        return {row.path for row in listed_files() if row.component in names}

    def test_buildroot_installs_the_tool_and_the_library(self):
        linux = "BR2_PACKAGE_CFGTOOL_LINUX_PLATFORM=y"
        self.assertEqual(self.installed_by_buildroot("target", linux), self.components("tool", "platform"))

    def test_buildroot_leaves_the_library_to_the_board(self):
        self.assertEqual(self.installed_by_buildroot("target"), self.components("tool"))

    def test_buildroot_has_in_staging_what_other_packages_build_with(self):
        self.assertEqual(self.installed_by_buildroot("staging"), self.components("platform", "dev"))

    def test_buildroot_installs_completions_when_it_shall(self):
        self.assertEqual(self.installed_by_buildroot("target", "BR2_PACKAGE_CFGTOOL_COMPLETION=y"),
                         self.components("tool", "completion"))

    def test_buildroot_installs_the_profile_of_the_board(self):
        (self.folder / "profile").write_text("[FAN_PROPERTITY]\n")
        self.buildroot("target", f'BR2_PACKAGE_CFGTOOL_BOARD_PROFILE="{self.folder}/profile"')
        self.assertEqual((self.folder / "target/data/cli.conf").read_text(), "[FAN_PROPERTITY]\n")

    def test_buildroot_has_an_account_for_each_user_of_the_controller(self):
        rows = [line.split(maxsplit=8) for line in
                self.buildroot("users", "BR2_PACKAGE_CFGTOOL_ACCOUNTS=y").splitlines() if line.strip()]
        self.assertEqual(rows, [[f"ipmi{n}", str(500 + n), f"ipmi{n}", str(500 + n), "*", "-", "/bin/sh", "-",
                                 f"User {n} of the controller"] for n in range(1, 18)])
        self.assertEqual(self.buildroot("users").strip(), "")

    def test_buildroot_asks_for_what_the_package_uses(self):
        asked = set(re.findall(r"^config (\w+)$", self.CONFIG.read_text(), re.MULTILINE))
        used = set(re.findall(r"BR2_PACKAGE_\w+", self.MAKEFILE.read_text()))
        self.assertEqual(used | {"BR2_PACKAGE_CFGTOOL"}, asked)
        self.assertEqual((self.MAKEFILE.parent / self.buildroot_source()).resolve(), REPOSITORY)

    def buildroot_source(self) -> str:
        site, = re.findall(r"^CFGTOOL_SITE = (.*)$", self.MAKEFILE.read_text(), re.MULTILINE)
        return site.replace("$(BR2_EXTERNAL_CFGTOOL_PATH)", str(PACKAGING / "buildroot"))

    def recipe(self) -> str:
        recipe, = (PACKAGING / "yocto").iterdir()
        return recipe.read_text().replace("\\\n", "")

    def setting(self, name: str) -> str:
        return re.search(rf'^{re.escape(name)} (?:=|=\+|\+=) "(.*)"$', self.recipe(), re.MULTILINE).group(1)

    def yocto_packages(self) -> dict[str, set[str]]:
        """Which package of the recipe each file comes into: the first that names it or a folder it is in. The last ones, and
        bash-completion, are BitBake's own."""
        folders = {"bindir": "bin", "libdir": "lib", "includedir": "include", "datadir": "share", "mandir": "share/man",
                   "docdir": "share/doc", "sysconfdir": "etc", "nonarch_libdir": "lib"}
        named = dict(re.findall(r'^FILES:(\S+) = "(.*)"$', self.recipe(), re.MULTILINE)) | {
            "${PN}-bash-completion": "${datadir}/bash-completion",
            "${PN}-dev": "${includedir} ${libdir}/lib*.so ${libdir}/cmake ${libdir}/pkgconfig",
            "${PN}-doc": "${docdir} ${mandir} " + self.setting("FILES:${PN}-doc"),
            "${PN}": "${bindir} ${libdir} ${sysconfdir}"}
        order = [*self.setting("PACKAGES").split(), "${PN}-bash-completion", "${PN}-dev", "${PN}-doc", "${PN}"]
        self.assertEqual(set(order) - set(named), {"${PN}-accounts"})
        packages: dict[str, set[str]] = {name: set() for name in order}
        for row in listed_files():
            if row.component == "simulator":  # which the recipe does not build
                continue
            places = [row.path, *(str(parent) for parent in Path(row.path).parents)]
            for name in order:
                entries = re.sub(r"\$\{(\w+)\}", lambda found: folders[found.group(1)], named.get(name, "")).split()
                if any(fnmatch.fnmatchcase(place, entry) for place in places for entry in entries):
                    packages[name].add(row.path)
                    break
            else:
                self.fail(f"{row.path} comes into no package")
        return packages

    def test_yocto_puts_each_file_in_its_package(self):
        packages = self.yocto_packages()
        self.assertEqual(packages["libzentro-platform1"], self.components("platform"))
        self.assertEqual(packages["platform-check"], {"bin/platform-check"})
        self.assertEqual(packages["${PN}"], self.components("tool"))
        pages = {path for path in self.components("dev") if path.startswith("share/man/")}
        self.assertEqual(packages["${PN}-dev"] | packages["platform-check"] | pages, self.components("dev"))
        self.assertEqual(packages["${PN}-doc"], self.components("manual") | pages)
        completion = [packages[f"${{PN}}-{name}completion"] for name in ("", "bash-", "zsh-", "fish-")]
        self.assertTrue(all(completion))
        self.assertEqual(set.union(*completion), self.components("completion"))

    def test_yocto_has_an_account_for_each_user_of_the_controller(self):
        expression = re.fullmatch(r"\$\{@(.*)\}", self.setting("USERADD_PARAM:${PN}-accounts")).group(1)
        accounts = re.findall(r"--uid (\d+) .* ipmi(\d+)(?:;|$)", eval(expression).replace("; ", ";\n"), re.MULTILINE)
        self.assertEqual(accounts, [(str(500 + n), str(n)) for n in range(1, 18)])
        self.assertIn(self.setting("USERADD_PACKAGES"), self.setting("PACKAGES"))

    def test_both_set_what_can_be_set(self):
        options = re.findall(r"-D(\w+)=", self.buildroot("options") + self.recipe())
        self.assertGreater(len(options), 6)
        known = run("cmake", "-N", "-LA", BUILD).stdout + "CMAKE_SKIP_INSTALL_RPATH:"
        for option in options:
            self.assertIn(option + ":", known)

    def test_all_are_of_one_version(self):
        """That of the file VERSION, which no other file repeats but the list of changes."""
        self.assertEqual((REPOSITORY / "VERSION").read_text(), VERSION + "\n")
        self.assertEqual(self.buildroot("version"), VERSION + "\n")
        function = re.search(r"^def version_of_sources\(d\):\n(?:    .*\n)+", self.recipe(), re.MULTILINE).group(0)
        bitbake = types.SimpleNamespace(parse=types.SimpleNamespace(mark_dependency=lambda data, path: None))
        words = {"os": os, "bb": bitbake}
        exec(function, words)
        self.assertEqual(words["version_of_sources"](types.SimpleNamespace(getVar=lambda name: str(REPOSITORY))), VERSION)
        released = re.search(r"^## (\d+\.\d+\.\d+), \d{4}-\d\d-\d\d$", (REPOSITORY / "CHANGELOG.md").read_text(), re.M)
        self.assertEqual(released.group(1), VERSION)
        for path in [*PACKAGING.rglob("*"), *REPOSITORY.glob("cmake/*"), REPOSITORY / "CMakeLists.txt"]:
            if path.is_file():
                self.assertNotIn(VERSION, path.read_text(), path)


if __name__ == "__main__":
    unittest.main()
