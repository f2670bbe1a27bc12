"""A browser without a window, driven through its driver by the WebDriver protocol (W3C), which is JSON over HTTP."""

import base64
import json
import os
import re
import shutil
import subprocess
import urllib.error
import urllib.request

DRIVERS = ("chromedriver",)
BROWSERS = ("chromium", "chromium-browser", "google-chrome")
LOCAL = urllib.request.build_opener(urllib.request.ProxyHandler({}))  # a proxy has no business with this machine


def find():
    """The driver and the browser, or None where one is missing."""
    driver = next(filter(None, map(shutil.which, DRIVERS)), None)
    browser = next(filter(None, map(shutil.which, BROWSERS)), None)
    return (driver, browser) if driver and browser else None


class Browser:
    def __init__(self, profile, width=1280, height=800):
        driver, browser = find()
        self.driver = subprocess.Popen([driver, "--port=0"], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        port = None
        for line in self.driver.stdout:
            found = re.search(r"started successfully on port (\d+)", line)
            if found:
                port = found.group(1)
                break
        if port is None:
            raise RuntimeError("the browser's driver doesn't start")
        self.base = "http://127.0.0.1:%s" % port
        arguments = ["--headless=new", "--disable-gpu", "--hide-scrollbars", "--disable-dev-shm-usage", "--no-first-run",
                     "--user-data-dir=%s" % profile, "--window-size=%d,%d" % (width, height), "--lang=en"]
        if os.geteuid() == 0:
            arguments.append("--no-sandbox")  # its own sandbox refuses to run as root
        answer = self._call("POST", "/session", {"capabilities": {"alwaysMatch": {
            "browserName": "chrome", "goog:chromeOptions": {"binary": browser, "args": arguments},
            "goog:loggingPrefs": {"browser": "ALL"}}}})
        self.base += "/session/" + answer["sessionId"]

    def _call(self, method, path, body=None):
        data = json.dumps(body).encode() if body is not None else None
        request = urllib.request.Request(self.base + path, data, {"Content-Type": "application/json"}, method=method)
        try:
            with LOCAL.open(request, timeout=300) as response:
                return json.load(response)["value"]
        except urllib.error.HTTPError as error:
            raise RuntimeError("%s: %s" % (path, error.read().decode()[:500])) from None

    def open(self, address):
        self._call("POST", "/url", {"url": address})

    def run(self, script, *arguments):
        """Runs the body of a function in the page and gives what it returns."""
        return self._call("POST", "/execute/sync", {"script": script, "args": list(arguments)})

    def wait(self, script, what, seconds=20):
        """Waits until an expression of the page is true."""
        done = self._call("POST", "/execute/async", {"args": [int(seconds * 1000)], "script": """
            const [most, done] = arguments, start = performance.now();
            (function look() {
                if (%s) done(true);
                else if (performance.now() - start > most) done(false);
                else setTimeout(look, 20);
            })();""" % script}) if self._allow(seconds) is None else None
        if not done:
            raise AssertionError("waited in vain: " + what)

    def _allow(self, seconds):
        self._call("POST", "/timeouts", {"script": int(seconds * 1000) + 5000})

    def tool(self, command, **parameters):
        """A command of the browser's own tools for developers."""
        return self._call("POST", "/goog/cdp/execute", {"cmd": command, "params": parameters})

    def look(self, width, height, dark=False, scale=1, media=""):
        self.tool("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=scale, mobile=False)
        self.tool("Emulation.setEmulatedMedia", media=media,
                  features=[{"name": "prefers-color-scheme", "value": "dark" if dark else "light"}])

    def keys(self, text):
        """Types at what has the focus."""
        actions = [{"type": kind, "value": key} for key in text for kind in ("keyDown", "keyUp")]
        self._call("POST", "/actions", {"actions": [{"type": "key", "id": "keyboard", "actions": actions}]})

    def picture(self, path):
        with open(path, "wb") as out:
            out.write(base64.b64decode(self._call("GET", "/screenshot")))

    def messages(self):
        """What the console said since it was last asked."""
        return [entry["message"] for entry in self._call("POST", "/se/log", {"type": "browser"})]

    def close(self):
        try:
            self._call("DELETE", "")
        finally:
            self.driver.terminate()
            self.driver.wait(20)
