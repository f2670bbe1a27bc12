#!/usr/bin/env python3
"""Looks at the page of `orvale view` in a real browser: that everything is in it and found in it, that its parts open, that
nothing of a hostile text runs. With --pictures FOLDER it takes the documents' pictures instead.

Result 77, which is the runner's word for a skipped test, where there is no browser or no driver for it."""

import argparse
import os
import pathlib
import subprocess
import sys
import tempfile

import backup
import browser

KEY_ESCAPE = "\ue00c"
KEY_DOWN = "\ue015"
TABS = ("contacts", "calendar", "sms", "email")

# What a reader sees of a text: the page shows controls by their pictures and has line ends of one kind.
AS_SHOWN = """
    const shown = (text) => text.replace(/\\r\\n?/g, "\\n").replace(/[\\0-\\x08\\x0b-\\x1f]/g,
        (c) => String.fromCharCode(0x2400 + c.charCodeAt(0))).replace(/\\x7f/g, "\\u2421").replace(/[\\x80-\\x9f]/g, "\\ufffd");"""

CONTRAST = """
    const context = Object.assign(document.createElement("canvas"), {width: 1, height: 1}).getContext("2d",
        {willReadFrequently: true});
    const rgba = (colour) => {
        context.clearRect(0, 0, 1, 1);
        context.fillStyle = colour;
        context.fillRect(0, 0, 1, 1);
        return [...context.getImageData(0, 0, 1, 1).data];
    };
    const light = ([r, g, b]) => {
        const [x, y, z] = [r, g, b].map((v) => (v /= 255) <= .04045 ? v / 12.92 : ((v + .055) / 1.055) ** 2.4);
        return .2126 * x + .7152 * y + .0722 * z;
    };
    const behind = (element) => {
        for (; element; element = element.parentElement) {
            const colour = rgba(getComputedStyle(element).backgroundColor);
            if (colour[3] > 200) return colour;
        }
        return [255, 255, 255, 255];
    };
    const bad = new Set();
    for (const element of document.querySelectorAll("body *")) {
        if (![...element.childNodes].some((node) => node.nodeType === 3 && node.data.trim())) continue;
        if (!element.checkVisibility({opacityProperty: true, visibilityProperty: true}) || element.closest(".v")) continue;
        if (!element.getClientRects().length || element.closest(".done, [aria-hidden]")) continue;
        const [a, b] = [light(rgba(getComputedStyle(element).color)), light(behind(element))];
        const contrast = (Math.max(a, b) + .05) / (Math.min(a, b) + .05);
        if (contrast < 4.5) bad.add(element.tagName + "." + element.className + " in " + element.parentElement.className + ": "
            + contrast.toFixed(2));
    }
    return [...bad];"""


class Checks:
    def __init__(self):
        self.failed = []

    def equal(self, what, found, wanted):
        if found != wanted:
            self.failed.append("%s: %r, not %r" % (what, found, wanted))

    def true(self, what, value):
        if not value:
            self.failed.append(what)


def open_page(driver, address, part=""):
    driver.open("about:blank")  # else another part of the same page is no new page
    driver.open(address + part)
    driver.wait("document.documentElement.classList.contains('ready')", "the page's script")


def count(driver, selector):
    return driver.run("return document.querySelectorAll(arguments[0]).length", selector)


def check_whole(driver, checks, messages):
    extra = len(backup.HOSTILE)
    for selector, wanted in ((".card", 100 + extra), (".m", messages + extra), (".mail", 100 + extra),
                             ("#email .list li", 100 + extra), ("#sms .list li", count(driver, ".thread"))):
        checks.equal("how many there are of " + selector, count(driver, selector), wanted)
    checks.equal("ids twice", driver.run("""const ids = [...document.querySelectorAll("[id]")].map((e) => e.id);
        return ids.filter((id, i) => ids.indexOf(id) !== i)"""), [])
    checks.equal("links into the page that lead nowhere", driver.run("""return [...document.querySelectorAll('a[href^="#"]')]
        .map((a) => a.hash.slice(1)).filter((id) => !document.getElementById(id))"""), [])
    checks.equal("threads whose count is wrong, or whose messages are out of order", driver.run("""
        return [...document.querySelectorAll(".thread")].filter((thread) => {
            const link = document.querySelector('#sms a[href="#' + thread.id + '"] b');
            const bubbles = [...thread.querySelectorAll(".m")];
            const times = bubbles.map((m) => m.querySelector("time")).filter(Boolean).map((time) => time.dateTime);
            return !link.textContent.includes(" " + bubbles.length.toLocaleString("en") + " ")
                || times.some((time, i) => i && time < times[i - 1]);
        }).map((thread) => thread.id)"""), [])


def check_nothing_hostile(driver, checks):
    driver.run("""for (const element of document.querySelectorAll("body *"))
        for (const name of ["mouseover", "click", "focus", "load", "error"])
            if (element.tagName !== "A" && element.tagName !== "BUTTON" && element.tagName !== "INPUT")
                element.dispatchEvent(new Event(name))""")
    checks.equal("elements that no page of ours has", driver.run("""return [...document.querySelectorAll(
        "img, iframe, object, embed, base, link, form, video, audio, math, template, noscript, [style], [srcdoc], [src]")]
        .map((e) => e.outerHTML.slice(0, 80))"""), [])
    checks.equal("scripts and styles", count(driver, "script, style"), 2)
    checks.equal("attributes that run", driver.run("""return [...document.querySelectorAll("*")].flatMap((e) =>
        [...e.attributes].filter((a) => /^on/i.test(a.name)).map((a) => a.name))"""), [])
    checks.equal("links that lead where none may", driver.run("""return [...document.querySelectorAll("a, [*|href]")]
        .map((a) => a.getAttribute("href")).filter((address) => !/^(#[a-z0-9-]*$|https?:\\/\\/[a-z0-9.:-]+([/?#]|$)|mailto:[^?&]+$|tel:\\+?[0-9]+$)/i
        .test(address))"""), [])
    checks.equal("hostile texts that don't stand in the page as they are", driver.run(AS_SHOWN + """
        const there = new Set([...document.querySelectorAll(".m > p, .mail .text, .card dd")].map((e) => e.textContent));
        return arguments[0].filter((text) => !there.has(shown(text)))""", backup.HOSTILE), [])
    checks.equal("title", driver.run("return document.title"), "Contacts, Calendar, Messages, Mail")


def check_tabs(driver, checks):
    for tab in TABS:
        driver.run("document.querySelector('.tabs a[href=\"#' + arguments[0] + '\"]').click()", tab)
        driver.wait("document.querySelector('.tab.on').id === '%s'" % tab, "the tab " + tab)
        checks.equal("what is open under " + tab, driver.run(
            "return [...document.querySelectorAll('.tab')].filter((e) => e.checkVisibility()).map((e) => e.id)"), [tab])
        checks.equal("current tab", driver.run("return document.querySelector('.tabs [aria-current]')?.hash"), "#" + tab)
    for part in ("agenda", "todos", "y2008-7", "t1", "q5", "e3"):
        driver.run("location.hash = arguments[0]", part)
        driver.wait("document.getElementById('%s').checkVisibility()" % part, "the part " + part)
    driver.run("history.back()")
    driver.wait("document.getElementById('q5').checkVisibility()", "the way back")


def wait_for_search(driver, end):
    """Waits until a search is done that marks a word with that end."""
    driver.wait("""/found$/.test(document.getElementById("h-results").textContent) && document.getElementById("results").
        checkVisibility() && [...document.querySelectorAll("#results mark")].some((e) => e.textContent.endsWith("%s"))""" % end,
                "the search for " + end)


def check_search(driver, checks):
    driver.run("document.activeElement.blur()")
    driver.keys("/")
    checks.equal("what '/' leads to", driver.run("return document.activeElement.id"), "find")
    driver.keys("grusse sofia")
    wait_for_search(driver, "Sofía")
    checks.equal("kinds found", driver.run("return [...document.querySelectorAll('#results h3')].map((e) => e.firstChild.data)"),
                 ["Mail "])
    driver.keys(KEY_ESCAPE)
    checks.true("the results go", not driver.run("return document.getElementById('results').checkVisibility()"))
    driver.keys("luggage once")
    wait_for_search(driver, "once")
    driver.keys(KEY_DOWN)
    driver.run("document.activeElement.click()")
    driver.wait("document.querySelector('.m.flash')", "the message that was found")
    checks.true("the message that was found is in view", driver.run("""
        const box = document.querySelector(".m.flash").getBoundingClientRect();
        return box.top >= 0 && box.bottom <= innerHeight && box.height > 0"""))
    checks.equal("marked words", driver.run("return CSS.highlights.get('found').size"), 2)
    driver.run("const find = document.getElementById('find'); find.value = arguments[0]; find.dispatchEvent(new Event('input'))",
               "<script>document.title=")
    wait_for_search(driver, "title=")
    checks.true("markup is found as text", count(driver, "#results li") > 0)
    checks.equal("markup in the results", count(driver, "#results script, #results svg, #results img"), 0)
    driver.keys(KEY_ESCAPE)


def check_looks(driver, checks, address):
    for dark in (False, True):
        driver.look(1280, 800, dark)
        for part in ("#contacts", "#calendar", "#agenda", "#todos", "#sms", "#email"):
            open_page(driver, address, part)
            checks.equal("contrast in %s, %s" % (part, "dark" if dark else "light"), driver.run(CONTRAST), [])
    paper = "return getComputedStyle(document.body).backgroundColor"
    before = driver.run(paper)
    driver.run("document.getElementById('theme').click()")
    checks.true("the switch of light and dark", driver.run(paper) != before)
    driver.run("localStorage.clear()")
    driver.look(390, 844)
    for part in ("#contacts", "#calendar", "#agenda", "#sms", "#t0", "#email", "#q3"):
        open_page(driver, address, part)
        checks.true("%s fits a narrow window" % part, driver.run(
            "return document.documentElement.scrollWidth <= innerWidth && document.body.scrollWidth <= innerWidth"))
    driver.look(1000, 700, media="print")
    open_page(driver, address, "#sms")
    checks.equal("print leaves the bar out and shows the thread", driver.run("""return [".bar", ".list", ".thread.on .m"]
        .map((e) => document.querySelector(e).checkVisibility())"""), [False, False, True])
    driver.run("document.documentElement.classList.add('print-all')")
    checks.equal("what is missing where everything is printed", driver.run("""return [".card", "#months", "#agenda", "#todos", ".m",
        ".mail"].filter((e) => ![...document.querySelectorAll(e)].every((each) => each.checkVisibility()))"""), [])
    driver.look(1280, 800)


def check_for_all(driver, checks, address):
    """What a screen reader is told, and what a browser without scripts shows."""
    open_page(driver, address, "#sms")
    nodes = driver.tool("Accessibility.getFullAXTree")["nodes"]
    text = lambda node, key: node.get(key, {}).get("value", "")
    roles = {text(node, "role") for node in nodes if not node["ignored"]}
    checks.equal("landmarks that are missing", {"banner", "navigation", "main", "search"} - roles, set())
    checks.equal("controls without a name", [node["nodeId"] for node in nodes if not node["ignored"] and text(node, "role") in
                 ("link", "button", "checkbox", "searchbox", "textbox", "DisclosureTriangle", "table") and not text(node, "name")], [])
    driver.tool("Emulation.setScriptExecutionDisabled", value=True)
    driver.open("about:blank")
    driver.open(address)
    document = driver.tool("DOM.getDocument")["root"]["nodeId"]
    for selector in (".card", "#months table", "#agenda .e", "#todos .e", ".thread:last-of-type .m", ".mail:last-of-type .text"):
        node = driver.tool("DOM.querySelector", nodeId=document, selector=selector)["nodeId"]
        try:
            driver.tool("DOM.getBoxModel", nodeId=node)
        except RuntimeError:
            checks.true("without scripts there is no " + selector, False)
    driver.tool("Emulation.setScriptExecutionDisabled", value=False)


def take_pictures(driver, address, folder):
    for name, part, width, height, dark in (
            ("contacts", "#contacts", 1240, 780, False), ("messages", "#t0", 1240, 780, False),
            ("calendar", "#y2008-7", 1240, 780, False), ("mail", "#q10", 1240, 780, True),
            ("narrow", "#t0", 390, 780, True)):
        driver.look(width, height, dark)
        open_page(driver, address, part)
        driver.run("return new Promise((done) => setTimeout(done, 500))")
        driver.picture(os.path.join(folder, "page-%s.png" % name))


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("orvale", help="the command")
    parser.add_argument("--messages", type=int, default=1000)
    parser.add_argument("--pictures", metavar="FOLDER")
    options = parser.parse_args()
    if browser.find() is None:
        print("skipped: there is no chromium with a chromedriver here (Debian's chromium and chromium-driver)")
        return 77
    checks = Checks()
    with tempfile.TemporaryDirectory(ignore_cleanup_errors=True) as folder:
        page = pathlib.Path(folder, "page.html")
        paths = backup.write(folder, options.messages, hostile=not options.pictures)
        subprocess.run([options.orvale, "view", "--output", str(page), *paths], check=True)
        address = page.as_uri()
        driver = browser.Browser(os.path.join(folder, "profile"))
        try:
            driver.look(1280, 800)
            if options.pictures:
                take_pictures(driver, address, options.pictures)
                return 0
            open_page(driver, address)
            check_whole(driver, checks, options.messages)
            check_tabs(driver, checks)
            check_search(driver, checks)
            check_nothing_hostile(driver, checks)
            check_looks(driver, checks, address)
            checks.equal("what the console says", driver.messages(), [])
            check_for_all(driver, checks, address)
        except AssertionError as error:  # what comes behind it can't be looked at
            checks.failed.append(str(error))
        finally:
            driver.close()
    for line in checks.failed:
        print("FAILED: " + line)
    return 1 if checks.failed else 0


if __name__ == "__main__":
    sys.exit(main())
