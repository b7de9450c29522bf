"""Opens a page in headless Chromium and does what a JSON list of steps says; prints a JSON list of what came of it.

browse_page.py CHROMIUM PAGE STEPS [AXE]: CHROMIUM is the program, AXE the path of axe.min.js. A step is a list:

  ["screen", WIDTH, HEIGHT, "light" | "dark" | "print"]   from then on; the page stays as it is
  ["open", FRAGMENT]            loads the page anew at #FRAGMENT, and gives the milliseconds until it is drawn
  ["evaluate", EXPRESSION]      gives the value
  ["time", EXPRESSION]          gives the milliseconds until what the expression changed is drawn
  ["axe"]                       gives axe-core's violations, each as "rule: target"
  ["picture", FILE, WHOLE]      writes a PNG of the screen, or of the whole page
  ["complaints"]                gives all errors on the console and all requests but that of the page, so far

Speaks to the browser over pipes, so nothing but the browser is needed.
"""

import base64
import fcntl
import json
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile

chromium, page, steps = sys.argv[1:4]
axe = sys.argv[4] if len(sys.argv) > 4 else None
page = pathlib.Path(page).resolve().as_uri()


def high_pipe():
    """A pipe whose ends are none of the numbers 3 and 4, which the browser gets."""
    return [fcntl.fcntl(end, fcntl.F_DUPFD, 10) for end in os.pipe()]


class Browser:
    def __init__(self, profile):
        its_input, self.commands = high_pipe()
        self.answers, its_output = high_pipe()
        self.process = subprocess.Popen(
            [chromium, "--headless=new", "--remote-debugging-pipe", "--no-sandbox", "--disable-gpu",
             "--disable-dev-shm-usage", "--no-first-run", "--disable-background-networking",
             "--disable-component-update", "--force-color-profile=srgb", f"--user-data-dir={profile}", "about:blank"],
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, close_fds=False,
            preexec_fn=lambda: (os.dup2(its_input, 3), os.dup2(its_output, 4)))
        os.close(its_input)
        os.close(its_output)
        self.buffer = b""
        self.number = 0
        self.session = None
        self.events = []
        self.complaints = []

    def read(self):
        while b"\0" not in self.buffer:
            part = os.read(self.answers, 1 << 20)
            if not part:
                sys.exit("the browser ended")
            self.buffer += part
        message, self.buffer = self.buffer.split(b"\0", 1)
        message = json.loads(message)
        if "method" in message:
            self.note(message["method"], message["params"])
            self.events.append(message["method"])
        return message

    def note(self, method, values):
        if method == "Network.requestWillBeSent":
            url = values["request"]["url"]
            if url.split("#")[0] != page and not url.startswith("data:"):
                self.complaints.append("request: " + url)
        elif method == "Log.entryAdded" and values["entry"]["level"] != "info":
            self.complaints.append("log: " + values["entry"]["text"])
        elif method == "Runtime.consoleAPICalled":
            self.complaints.append("console: " + str(values["args"]))
        elif method == "Runtime.exceptionThrown":
            self.complaints.append("exception: " + str(values["exceptionDetails"]))
        elif method == "Page.javascriptDialogOpening":
            self.complaints.append("dialog: " + values["message"])
            self.send("Page.handleJavaScriptDialog", {"accept": True})

    def send(self, method, values):
        self.number += 1
        message = {"id": self.number, "method": method, "params": values}
        if self.session:
            message["sessionId"] = self.session
        data = json.dumps(message).encode() + b"\0"
        while data:
            data = data[os.write(self.commands, data):]
        return self.number

    def call(self, method, **values):
        number = self.send(method, values)
        while True:
            message = self.read()
            if message.get("id") == number:
                if "error" in message:
                    sys.exit(f"{method}: {message['error']}")
                return message["result"]

    def wait_for(self, method):
        while method not in self.events:
            self.read()

    def evaluate(self, expression):
        result = self.call("Runtime.evaluate", expression=expression, returnByValue=True, awaitPromise=True)
        if "exceptionDetails" in result:
            sys.exit(f"{expression}: {result['exceptionDetails']}")
        return result["result"].get("value")


DRAWN = "new Promise(done => requestAnimationFrame(() => setTimeout(done)))"


def open_page(browser, fragment):
    # From another page: the same address with another fragment would not be loaded anew.
    browser.call("Page.navigate", url="about:blank")
    browser.evaluate(DRAWN)
    browser.events.clear()
    browser.call("Page.navigate", url=page + ("#" + fragment if fragment else ""))
    browser.wait_for("Page.loadEventFired")
    return browser.evaluate(f"{DRAWN}.then(() => Math.round(performance.now()))")


def run(browser, step):
    name, *values = step
    if name == "screen":
        width, height, kind = values
        browser.call("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1,
                     mobile=width < 600)
        browser.call("Emulation.setEmulatedMedia", media="print" if kind == "print" else "screen",
                     features=[{"name": "prefers-color-scheme", "value": "dark" if kind == "dark" else "light"},
                               {"name": "prefers-reduced-motion", "value": "reduce"}])
    elif name == "open":
        return open_page(browser, values[0])
    elif name == "evaluate":
        return browser.evaluate(values[0])
    elif name == "time":
        return browser.evaluate("(async () => { const start = performance.now(); "
                                f"{values[0]}; await {DRAWN}; return Math.round(performance.now() - start); }})()")
    elif name == "axe":
        browser.evaluate(pathlib.Path(axe).read_text(encoding="utf-8") + "; true")
        return browser.evaluate("axe.run().then(result => result.violations.flatMap(one => "
                                "one.nodes.map(node => one.id + ': ' + node.target.join(' '))))")
    elif name == "picture":
        file, whole = values
        picture = browser.call("Page.captureScreenshot", format="png", captureBeyondViewport=whole,
                               **({"clip": dict(browser.call("Page.getLayoutMetrics")["cssContentSize"], scale=1)}
                                  if whole else {}))
        pathlib.Path(file).write_bytes(base64.b64decode(picture["data"]))
    elif name == "complaints":
        return browser.complaints
    else:
        sys.exit(f"no such step: {name}")
    return None


def give_up(*_):
    sys.exit("the browser takes too long")


signal.signal(signal.SIGALRM, give_up)
signal.alarm(180)
profile = tempfile.mkdtemp()
browser = Browser(profile)
try:
    target = browser.call("Target.createTarget", url="about:blank")["targetId"]
    browser.session = browser.call("Target.attachToTarget", targetId=target, flatten=True)["sessionId"]
    for domain in ("Page", "Network", "Log", "Runtime"):
        browser.call(domain + ".enable")
    print(json.dumps([run(browser, step) for step in json.loads(steps)]))
finally:
    browser.process.kill()
    browser.process.wait()
    shutil.rmtree(profile, ignore_errors=True)
