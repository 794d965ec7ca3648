"""Tests `chromahost validate` on plugins with one fault each: python validate_test.py GROUP FOLDER HOST..."""
import json
import os
import re
import signal
import subprocess
import sys
import tempfile
import time
import unittest
from xml.etree import ElementTree

GROUP, FOLDER, *HOST = sys.argv[1:]
PLUGIN = os.path.abspath(FOLDER) + "/libfaulty.so"

# A crash must end the process by its signal, also in a sanitized host.
os.environ["ASAN_OPTIONS"] = os.environ.get("ASAN_OPTIONS", "") + ":handle_segv=0:handle_sigfpe=0:handle_sigbus=0:handle_abort=0"

# Each fault of faulty_plugin.cpp as "CHECK.WORD", and the report of that check, run without others.
FAULTS = {
    "null-resolver.crash": "REALPluginMain of null: the process crashed with SIG",
    "announces-once.never": "it announces 0 control versions",
    "announces-once.twice": "it announces 2 control versions",
    "announces-once.unknown": "it announces the control version 8",
    "announces-once.late": "it announces a control version after a class",
    "announces-once.crash": "REALPluginMain: the process crashed with SIGFPE",
    "records-parse.method": "Faulty: method 0: ",
    "records-parse.record": "Faulty: the instance data size 7 ",
    "records-complete.count": "no table and a count of 3 for the events",
    "records-complete.table": "a table and a count of 0 for the constants",
    "records-complete.group": "property 0 has a group",
    "records-complete.property": "property 1 has reserved words",
    "records-complete.method": "method 2 has reserved words",
    "records-complete.shared": "shared method 0 has reserved words",
    "records-complete.constant": "constant 1 has reserved words",
    "types-known.parameter": "Faulty.first/1: there is no class Elsewhere",
    "types-known.result": "Faulty.self/0: there is no class Elsewhere",
    "members-unique.method": r"First\(String\) is declared twice",
    "members-unique.property": "name is declared twice",
    "members-unique.constant": "LIMIT is declared twice",
    "null-receivers.result": "Faulty.first/1 of null: the result is not null",
    "null-receivers.raises": "Faulty.first/1 of null: it raises an exception",
    "null-receivers.throws": "Faulty.first/1 of null: an exception left the function: std::domain_error: of the plugin",
    "null-receivers.crash": "Faulty.first/1 of null: the process crashed with SIGFPE",
    "empty-receivers.crash": "Faulty.first/1 of an empty object: the process crashed",
    "empty-receivers.throws": "Faulty.first/1 of an empty object: an exception left the function",
    "arguments.crash": "Faulty.again/1 of .* with words = the empty text: the process crashed with SIGFPE",
    "arguments.throws": "Faulty.again/1 of .* with words = the empty text: an exception left the function",
    "arguments.exit": "Faulty.again/1 of an empty object: the process exited with code 0 before it returned",
    "arguments.filled": "Faulty.again/1 of a filled object: the process crashed",
    "setters.crash": "Faulty.Name=/1 of null: the process crashed with SIG",
    "setters.throws": "Faulty.Name=/1 of null: an exception left the function",
    "setters.ignored": 'Faulty.Name=/1 of an empty object: reading the property returns ""',
    "setters.unreadable": "Faulty.Name=/1 of .*: reading the property raises an exception",
    "exception-results.both": "Faulty.at/1 of .* with index = 1: it raises an exception and returns a result",
    "balance.object": "Faulty.first/1 of an empty object: each call leaks 1 x Faulty$",
    "balance.string": "Faulty.first/1 of an empty object: each call leaks 1 x String$",
    "balance.registry": "Faulty.first/1 of an empty object: each call leaks 1 x registry entry$",
    "owned-results.argument": "Faulty.echo/1 of .*: it returned its argument without a new reference",
    "owned-results.receiver": "Faulty.self/0 of .*: it returned its argument without a new reference",
    "owned-results.cached": "Faulty.echo/1 of .*: it returned a string that is already destroyed",
    "owned-results.stored": "Faulty.Name/0 of a filled object: it returned a string that is already destroyed",
    "destroyed-values.entry": "Faulty.first/1 of .*: REALLockObject was called with a value that is already destroyed",
    "destroyed-values.written": "Faulty.first/1 of .*: it wrote to an object or string that is already destroyed",
    "destroyed-values.borrowed": "Faulty.first/1 of .*: Faulty.first/1 released a value that it had only borrowed",
    "destroyed-values.receiver": "Faulty.first/1 of .*: Faulty.first/1 released a value that it had only borrowed",
    "instance-data.constructor": "Faulty.constructor wrote beyond the end of an object",
    "instance-data.method": "Faulty.first/1 of .*: it wrote beyond the end of an object",
    "locked-text.argument": "Faulty.first/1 of .*: the process crashed with SIGSEGV; it read the text of a string that",
    "locked-text.converted": "Faulty.echo/1 of .*: the process crashed with SIGSEGV; it read the text of a string that",
    "one-thread.joined": "Faulty.first/1 of .*: REALLockObject was called on another thread",
    "one-thread.detached": "Faulty.first/1 of .*: REALLockObject was called on another thread",
    "host-versions.crash": "Faulty.first/1 of an empty object: the process crashed",
    "missing-entries.crash": "Faulty.text/0: the process crashed",
    "host-nulls.crash": "Faulty.text/0: the process crashed with SIGFPE after REALBuildString returned null",
    "host-nulls.throws": "Faulty.text/0, where REALBuildString failed: an exception left the function",
    "host-nulls.left": "Faulty.text/0, where REALBuildString failed: each call leaks 1 x String$",
    "host-exceptions.crash": "Faulty.text/0: the process crashed with SIGABRT after REALBuildString threw",
    "host-exceptions.left": "Faulty.text/0, where REALBuildString failed: each call leaks 1 x String$",
    "host-exceptions.start": "REALPluginMain: the process crashed with SIGABRT after PluginRegisterClass threw",
}
WARNINGS = ("types-known", "host-exceptions", "setters.ignored", "setters.unreadable")


def start(fault, *arguments, plugin=PLUGIN, **options):
    environment = dict(os.environ, CHROMA_FAULT=fault, **options)
    return subprocess.Popen([*HOST, "validate", plugin, *arguments], env=environment, text=True, errors="replace",
                            stdout=subprocess.PIPE, stderr=subprocess.STDOUT)


def validate(fault, *arguments, **options):
    process = start(fault, *arguments, **options)
    return process.communicate()[0], process.returncode


def validate_as_json(fault, *arguments, **options):
    output, code = validate(fault, "--json", *arguments, **options)
    report = json.loads(output)
    return report, {check["name"]: check for check in report["checks"]}, code


def texts(check):
    return [complaint["text"] for complaint in check["complaints"]]


class Faults(unittest.TestCase):
    def test_plugin_without_a_fault_passes_every_check(self):
        report, checks, code = validate_as_json("none")
        self.assertEqual({check["result"] for check in checks.values()}, {"passed"}, report)
        self.assertEqual(code, 0)
        self.assertEqual(report["summary"]["passed"], len(checks))
        self.assertEqual((report["plugin"], bool(report["version"])), (PLUGIN, True))

    def test_each_fault_is_detected_by_its_check(self):
        for fault, expected in FAULTS.items():
            with self.subTest(fault):
                name = fault.split(".")[0]
                _, checks, code = validate_as_json(fault, "--only", name)
                is_warning = fault.startswith(WARNINGS)
                self.assertEqual(checks[name]["result"], "warning" if is_warning else "failed", checks)
                self.assertEqual(code, 0 if is_warning else 1)
                self.assertTrue(any(re.search(expected, text) for text in texts(checks[name])), texts(checks[name]))

    def test_every_check_has_a_fault(self):
        listed = subprocess.run([*HOST, "validate", "--list", "--json"], stdout=subprocess.PIPE, check=True).stdout
        names = {check["name"] for check in json.loads(listed)}
        self.assertEqual(names, {fault.split(".")[0] for fault in FAULTS} | {"loads", "exports-one-function"})

    def test_library_with_an_unbound_symbol_does_not_load(self):
        if not os.path.exists(FOLDER + "/libfaulty_loads.so"):
            self.skipTest("sanitized libraries are loaded with symbols unbound")
        _, checks, code = validate_as_json("", plugin=FOLDER + "/libfaulty_loads.so")
        self.assertRegex(texts(checks["loads"])[0], "missing")
        self.assertEqual({check["result"] for check in checks.values()}, {"failed", "not tested"})
        self.assertEqual(code, 1)

    def test_second_exported_function_is_named(self):
        _, checks, code = validate_as_json("", "--only", "exports-one-function", plugin=FOLDER + "/libfaulty_exports.so")
        self.assertEqual((texts(checks["exports-one-function"]), code), (["it exports another too"], 1))


class Reports(unittest.TestCase):
    def test_functions_after_a_crash_are_still_called(self):
        _, checks, _ = validate_as_json("arguments.crash", "--only", "arguments")
        self.assertEqual({text.split()[0] for text in texts(checks["arguments"])}, {"Faulty.first/1", "Faulty.again/1"})

    def test_setter_that_crashes_does_not_hide_other_functions(self):
        _, checks, _ = validate_as_json("setters.crash", "--only", "arguments")
        self.assertIn("Faulty.Name=/1, called for an argument", "".join(texts(checks["arguments"])))
        self.assertNotIn("Faulty.echo/1", "".join(texts(checks["arguments"])))

    def test_output_of_the_plugin_is_shown_with_its_check(self):
        output, _ = validate("arguments.crash", "--only", "null-receivers", "--only", "arguments")
        self.assertRegex(output, r"(?s)null-receivers +passed\narguments +FAILED\n.*    \| words of the plugin\n")

    def test_hosts_of_a_complaint_are_listed(self):
        _, checks, _ = validate_as_json("host-versions.crash", "--only", "host-versions")
        hosts = checks["host-versions"]["complaints"][0]["hosts"]
        self.assertEqual(hosts, ["version 0", "version 2011", "version 2012", "version 2013"])

    def test_start_that_crashes_leaves_the_classes_untested(self):
        _, checks, code = validate_as_json("announces-once.crash", "--only", "announces-once", "--only", "balance")
        self.assertEqual(checks["balance"]["reason"], "REALPluginMain does not return")
        self.assertEqual(code, 1)

    def test_nothing_tested_has_an_exit_code(self):
        _, checks, code = validate_as_json("nothing.registered")
        self.assertEqual((checks["loads"]["result"], checks["balance"]["result"]), ("passed", "not tested"))
        self.assertEqual(checks["balance"]["reason"], "the plugin registers no class")
        self.assertEqual(code, 4)

    def test_skipped_checks_are_not_run(self):
        report, checks, code = validate_as_json("balance.string", "--skip", "balance", "--skip", "host-versions",
                                                "--skip", "missing-entries", "--skip", "host-nulls", "--skip", "host-exceptions")
        self.assertNotIn("balance", checks)
        self.assertEqual(code, 0, report)

    def test_junit_has_failures_and_skipped_tests(self):
        output, code = validate("arguments.crash", "--junit", "--only", "arguments", "--only", "loads")
        suite = ElementTree.fromstring(output).find("testsuite")
        self.assertEqual((suite.get("tests"), suite.get("failures"), code), ("2", "1", 1))
        self.assertIn("Faulty.first/1", suite.find("testcase/failure").text)
        self.assertIn("words of the plugin", suite.find("testcase/system-err").text)
        output, _ = validate("nothing.registered", "--junit", "--only", "balance")
        self.assertIsNotNone(ElementTree.fromstring(output).find("testsuite/testcase/skipped"))

    def test_one_function_is_called_in_this_process_or_a_child(self):
        for arguments in ([], ["--in-process"]):
            output, code = validate("balance.string", "--call", "Faulty.first/1", *arguments)
            self.assertRegex(output, "Faulty.first/1 +FAILED\n    Faulty.first/1 of an empty object: .* 1 x String")
            self.assertEqual(code, 1)
        self.assertEqual(validate("", "--call", "Faulty.absent/0")[1], 4)
        self.assertLess(validate("arguments.crash", "--call", "Faulty.first/1", "--in-process")[1], 0)


    def test_program_names_the_function_and_place_of_an_escaped_exception(self):
        for fault, line, member in (("empty-receivers.throws", 'Print f.first("x")', "first"), ("setters.throws", 'f.Name = "x"', "Name")):
            result = subprocess.run([*HOST, "run", "--plugin", PLUGIN, "-e", "Dim f As New Faulty", "-e", line], text=True,
                                    env=dict(os.environ, CHROMA_FAULT=fault), stderr=subprocess.PIPE, check=False)
            self.assertRegex(result.stderr, "-e:2:.*: a C\\+\\+ exception left the plugin's function Faulty."
                             + member + ": of the plugin")
            self.assertEqual(result.returncode, 1)


class Limits(unittest.TestCase):
    def test_function_that_hangs_is_not_called_again(self):
        _, checks, code = validate_as_json("arguments.hang", "--timeout", "0.5", "--only", "empty-receivers", "--only", "arguments")
        self.assertIn("Faulty.first/1 of an empty object: the process did not return within 500 milliseconds",
                      texts(checks["empty-receivers"]))
        self.assertEqual(checks["arguments"]["notCalled"], ["Faulty.first/1", "Faulty.again/1"])
        self.assertEqual((checks["arguments"]["result"], code), ("passed", 1))

    def test_signal_stops_the_children_and_removes_the_folder(self):
        for number in (signal.SIGINT, signal.SIGTERM):
            with tempfile.TemporaryDirectory() as folder:
                process = start("arguments.hang", "--only", "empty-receivers", "--timeout", "60", TMPDIR=folder)
                while process.poll() is None and not (children := child_processes(process.pid)):
                    time.sleep(0.01)
                process.send_signal(number)
                process.communicate(timeout=30)
                self.assertEqual(process.returncode, -number)
                self.assertEqual(os.listdir(folder), [])
                self.assertFalse([child for child in children if os.path.exists(f"/proc/{child}")])


def child_processes(process):
    with open(f"/proc/{process}/task/{process}/children", encoding="ascii") as file:
        return file.read().split()


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], GROUP])
