"use strict";
// What the page does beyond what it shows. All of it stands in the markup, which is readable without this: the script
// opens one part at a time, searches, prints. Nothing is made of a text but text nodes.
(() => {
    const root = document.documentElement;
    root.classList.add("js");
    let store = null;  // some browsers keep nothing for a file, and say so by throwing
    try {
        store = window.localStorage;
        const theme = store.getItem("orvale-theme");
        if (theme === "dark" || theme === "light") root.dataset.theme = theme;
    } catch {
        store = null;
    }

    const byId = (id) => document.getElementById(id);
    const make = (name, text) => {
        const element = document.createElement(name);
        if (text !== undefined) element.textContent = text;
        return element;
    };
    const setOne = (elements, chosen, set) => {
        for (const element of elements) set(element, element === chosen);
    };
    const mark = (link, isOn) => {
        if (isOn) link.setAttribute("aria-current", "true");
        else link.removeAttribute("aria-current");
    };

    // ---- what is open

    const open = { tab: null };

    function showTab(tab) {
        if (open.tab === tab) return;
        if (open.tab) open.tab.classList.remove("on");
        open.tab = tab;
        tab.classList.add("on");
        for (const link of document.querySelectorAll(".tabs a")) mark(link, link.hash === "#" + tab.id);
        const pane = tab.querySelector(".pane");
        if (pane) pane.tabIndex = -1;
    }

    // Opens a thread or a mail, or a view of the calendar, in its tab.
    function showPart(part) {
        const tab = part.closest(".tab");
        const last = part.parentElement.querySelector(":scope > .on");
        if (last && last !== part) last.classList.remove("on");
        const isNew = last !== part;
        part.classList.add("on");
        const lastLink = tab.querySelector(".list [aria-current]");
        if (lastLink) mark(lastLink, false);
        const link = tab.querySelector('.list a[href="#' + part.id + '"]');
        if (link) {
            mark(link, true);
            link.scrollIntoView({ block: "nearest" });
        }
        return isNew;
    }

    // Brings an element into view, with all that it stands in.
    function reveal(target, { flash = false } = {}) {
        const tab = target.closest(".tab");
        if (!tab) return;
        endSearch();
        showTab(tab);
        const part = target.closest(".item, .view");
        if (part) {
            tab.classList.add("open");
            showPart(part);
            const pane = tab.querySelector(".pane");
            if (target !== part) target.scrollIntoView({ block: target.matches(".month, .am") ? "start" : "center" });
            else if (part.classList.contains("thread")) toEnd(part);
            else if (pane) pane.scrollTop = 0;
        } else if (target !== tab) {
            target.scrollIntoView({ block: target.classList.contains("letter") ? "start" : "center" });
        } else {
            tab.classList.remove("open");
            document.scrollingElement.scrollTop = 0;
        }
        if (flash) {
            for (const old of document.querySelectorAll(".flash")) old.classList.remove("flash");
            target.classList.add("flash");
        }
    }

    // A thread opens at its latest message. What lies above was never laid out, so that its height is a guess at first,
    // and the end is where it is only after some looks.
    function toEnd(thread) {
        const pane = thread.parentElement;
        const box = pane.scrollHeight > pane.clientHeight ? pane : document.scrollingElement;
        let height = -1;
        let looks = 0;
        (function scroll() {
            if (!thread.matches(".on") || box.scrollHeight === height || ++looks > 20) return;
            height = box.scrollHeight;
            box.scrollTop = height;
            requestAnimationFrame(scroll);
        })();
    }

    function route() {
        let target = location.hash.length > 1 ? byId(location.hash.slice(1)) : null;
        // In the agenda, a month is that of the agenda.
        if (target && target.matches(".month") && byId("agenda").matches(".on"))
            target = byId(target.id.replace("y", "a")) || target;
        if (target && target.closest(".tab")) reveal(target);
        else if (!open.tab) showTab(document.querySelector(".tab"));
    }

    // On a wide window a tab has something open from the start.
    function openFirsts() {
        for (const tab of document.querySelectorAll(".tab.two")) {
            const first = tab.querySelector(".view") || tab.querySelector(".item");
            if (first && !tab.querySelector(".pane > .on")) showPart(first);
        }
    }

    // ---- search

    const accents = /\p{M}+/gu;
    const others = { "ß": "ss", "ø": "o", "æ": "ae", "œ": "oe", "ł": "l", "đ": "d", "ı": "i", "ς": "σ" };
    const fold = (text) => text.normalize("NFD").replace(accents, "").toLowerCase().replace(/[ßøæœłđıς]/g, (c) => others[c]);

    const kinds = [
        { id: "contacts", name: "Contacts", title: (unit) => unit.querySelector("h4").textContent },
        { id: "calendar", name: "Calendar", title: (unit) => unit.querySelector("h6").textContent },
        { id: "sms", name: "Messages", title: (unit) => unit.closest(".thread").querySelector("h3").textContent },
        { id: "email", name: "Mail", title: (unit) => unit.querySelector("h3").textContent },
    ];

    // What is searched of a record: all but the phone's own numbers and the words for screen readers.
    function textOf(unit) {
        if (unit.classList.contains("m")) return unit.querySelector("p").textContent;
        const parts = [];
        const walker = document.createTreeWalker(unit, NodeFilter.SHOW_TEXT | NodeFilter.SHOW_ELEMENT, (node) => {
            if (node.nodeType === Node.TEXT_NODE) return NodeFilter.FILTER_ACCEPT;
            return node.matches(".x, .v, .av, .t, svg, dt") ? NodeFilter.FILTER_REJECT : NodeFilter.FILTER_SKIP;
        });
        while (walker.nextNode()) parts.push(walker.currentNode.data);
        return parts.join("\n");
    }

    // "4 Jan 2008, 18:16" of "2008-01-04T18:16:20".
    function readable(moment) {
        const parts = /^(\d+)-(\d+)-(\d+)(?:T(\d+:\d+))?/.exec(moment);
        if (!parts) return "";
        const month = "JanFebMarAprMayJunJulAugSepOctNovDec".substr(3 * (parts[2] - 1), 3);
        return Number(parts[3]) + " " + month + " " + Number(parts[1]) + (parts[4] ? ", " + parts[4] : "");
    }

    function dateOf(unit) {
        const own = unit.querySelector("time");
        const day = unit.closest(".flow-day, .aday");
        if (unit.classList.contains("m")) return own ? readable(own.dateTime) : "";
        if (day) return readable((day.querySelector("time") || {}).dateTime || "");
        const link = document.querySelector('.list a[href="#' + unit.id + '"] time');
        return link && unit.id ? link.textContent : "";
    }

    const folded = new Map();  // of each record that was searched; made at the first search
    let units = null;
    let run = 0;
    let words = [];

    const breathe = () => new Promise((resolve) => setTimeout(resolve));

    async function search(text) {
        const mine = ++run;
        words = fold(text).split(/\s+/).filter(Boolean);
        if (words.length === 0) return endSearch();
        root.classList.add("searching");
        const results = byId("results");
        results.hidden = false;
        const place = results.lastElementChild;
        const heading = byId("h-results");
        const lists = new Map();
        place.replaceChildren();
        heading.textContent = "Searching …";
        results.parentElement.scrollTop = 0;
        if (!units) units = document.getElementsByClassName("u");
        const all = units;
        let total = 0;
        let until = performance.now() + 10;
        for (let i = 0; i < all.length; ++i) {
            if (performance.now() > until) {
                await breathe();
                if (mine !== run) return;
                until = performance.now() + 10;
            }
            const unit = all[i];
            let own = folded.get(unit);
            if (own === undefined) folded.set(unit, (own = fold(textOf(unit))));
            if (!words.every((word) => own.includes(word))) continue;
            ++total;
            addHit(place, lists, unit);
        }
        for (const list of lists.values()) list.finish();
        heading.textContent = total === 0 ? "Nothing found" : total === 1 ? "1 found" : total.toLocaleString("en") + " found";
        if (total === 0) {
            const empty = make("p", "Nothing in here has “" + text.trim() + "” in it.");
            empty.className = "empty";
            empty.dir = "auto";
            place.append(empty);
        }
    }

    const kFirst = 25;  // hits of a kind that are shown at once
    const kMore = 200;

    function addHit(place, lists, unit) {
        const id = unit.closest(".tab").id;
        let list = lists.get(id);
        if (!list) lists.set(id, (list = makeList(place, id)));
        list.add(unit);
    }

    function makeList(place, id) {
        const kind = kinds.find((each) => each.id === id);
        const section = make("section");
        const heading = make("h3", kind.name + " ");
        const count = make("span");
        heading.append(count);
        const items = make("ol");
        const button = make("button", "Show more");
        button.type = "button";
        section.append(heading, items);
        place.append(section);
        const hits = [];
        let shown = 0;
        const show = (most) => {
            for (; shown < hits.length && most > 0; ++shown, --most) items.append(makeHit(kind, hits[shown]));
            button.hidden = shown >= hits.length;
        };
        button.addEventListener("click", () => show(kMore));
        return {
            add(unit) {
                hits.push(unit);
                if (shown < kFirst) show(1);
            },
            finish() {
                count.textContent = hits.length.toLocaleString("en");
                section.append(button);
                show(0);
            },
        };
    }

    function makeHit(kind, unit) {
        const link = make("a");
        link.href = "#" + (unit.closest("[id]") || unit).id;
        const title = make("b");
        title.dir = "auto";
        appendMarked(title, kind.title(unit), 200);
        const time = make("time", dateOf(unit));
        const snippet = make("span");
        snippet.dir = "auto";
        const lines = textOf(unit).split("\n").map((line) => line.trim()).filter(Boolean);
        if (!unit.classList.contains("m")) lines.shift();  // the title
        appendMarked(snippet, lines.join(" · "), 160);
        link.append(title, time, snippet);
        link.addEventListener("click", (event) => {
            event.preventDefault();
            const before = location.hash;
            if (link.hash !== before) history.pushState(null, "", link.hash);
            const found = words;
            reveal(unit, { flash: true });
            highlight(unit, found);
        });
        const item = make("li");
        item.append(link);
        return item;
    }

    // Where the words stand in a text, as pairs of offsets; folding may change the length of what it folds.
    function findWords(text, sought) {
        let plain = "";
        const offsets = [];
        let offset = 0;
        for (const character of text) {
            const own = fold(character);
            for (let i = 0; i < own.length; ++i) offsets.push(offset);
            plain += own;
            offset += character.length;
        }
        offsets.push(offset);
        const found = [];
        for (const word of sought)
            for (let at = plain.indexOf(word); at >= 0 && found.length < 50; at = plain.indexOf(word, at + word.length))
                found.push([offsets[at], offsets[at + word.length]]);
        found.sort((a, b) => a[0] - b[0]);
        return found.filter((pair, i) => pair[1] > pair[0] && (i === 0 || pair[0] >= found[i - 1][1]));
    }

    // The part of a text around the first word, with the words marked.
    function appendMarked(element, text, most) {
        const found = findWords(text.slice(0, 20000), words);
        let start = found.length && found[0][0] > most / 2 ? found[0][0] - 30 : 0;
        if (start > 0 && (text.charCodeAt(start) & 0xfc00) === 0xdc00) ++start;
        if (start > 0) element.append("… ");
        let place = start;
        for (const [from, to] of found) {
            if (from < place || to > start + most) continue;
            element.append(text.slice(place, from), make("mark", text.slice(from, to)));
            place = to;
        }
        element.append(text.slice(place, Math.max(place, start + most)) + (text.length > start + most ? " …" : ""));
    }

    function highlight(unit, sought) {
        if (!("highlights" in CSS)) return;
        const ranges = [];
        const walker = document.createTreeWalker(unit, NodeFilter.SHOW_TEXT);
        while (walker.nextNode()) {
            const node = walker.currentNode;
            for (const [from, to] of findWords(node.data.slice(0, 100000), sought)) {
                const range = new Range();
                range.setStart(node, from);
                range.setEnd(node, to);
                ranges.push(range);
            }
        }
        CSS.highlights.set("found", new Highlight(...ranges));
    }

    function endSearch() {
        ++run;
        root.classList.remove("searching");
        byId("results").hidden = true;
        if ("highlights" in CSS) CSS.highlights.delete("found");
    }

    // ---- the bar

    function setUpBar() {
        const find = byId("find");
        find.disabled = false;
        let timer = 0;
        find.addEventListener("input", () => {
            clearTimeout(timer);
            timer = setTimeout(() => search(find.value), 120);
        });
        find.addEventListener("focus", () => {
            if (find.value.trim() && byId("results").hidden) search(find.value);
        });
        byId("theme").addEventListener("click", () => {
            const dark = root.dataset.theme ? root.dataset.theme === "dark" : matchMedia("(prefers-color-scheme: dark)").matches;
            root.dataset.theme = dark ? "light" : "dark";
            if (store) store.setItem("orvale-theme", root.dataset.theme);
        });
        const menu = document.querySelector(".menu");
        const print = (all) => {
            menu.open = false;
            root.classList.toggle("print-all", all);
            window.print();
        };
        byId("print-this").addEventListener("click", () => print(false));
        byId("print-all").addEventListener("click", () => print(true));
        window.addEventListener("afterprint", () => root.classList.remove("print-all"));
        document.addEventListener("click", (event) => {
            if (!menu.contains(event.target)) menu.open = false;
        });
        document.addEventListener("keydown", (event) => onKey(event, find, menu));
    }

    function onKey(event, find, menu) {
        const typing = event.target instanceof HTMLInputElement && event.target.type !== "checkbox";
        if (event.key === "Escape") {
            menu.open = false;
            if (!byId("results").hidden || find.value) {
                find.value = "";
                endSearch();
            }
        } else if (event.key === "/" && !typing && !event.ctrlKey && !event.metaKey && !event.altKey) {
            event.preventDefault();
            find.focus();
            find.select();
        } else if (event.key === "ArrowDown" || event.key === "ArrowUp") {
            moveFocus(event, event.target === find);
        }
    }

    // The arrows go from link to link within a list, and from the search field into what it found.
    function moveFocus(event, fromFind) {
        const list = fromFind ? byId("results") : event.target.closest && event.target.closest(".list, #results");
        if (!list || list.hidden) return;
        const links = [...list.querySelectorAll("ol a")];
        const place = links.indexOf(document.activeElement);
        const next = links[place + (event.key === "ArrowDown" ? 1 : -1)];
        if (!next) return;
        event.preventDefault();
        next.focus();
    }

    // A link within the page opens what it leads to, also when it leads there again.
    function onClick(event) {
        const link = event.target.closest && event.target.closest('a[href^="#"]');
        if (!link || event.defaultPrevented || event.ctrlKey || event.metaKey || event.shiftKey) return;
        if (link.hash === location.hash) {
            event.preventDefault();
            route();
        }
        if (link.closest(".tabs")) byId("find").value = "";
    }

    document.addEventListener("DOMContentLoaded", () => {
        setUpBar();
        openFirsts();
        root.classList.add("ready");
        document.addEventListener("click", onClick);
        window.addEventListener("hashchange", route);
        window.addEventListener("popstate", route);
        route();
    });
})();
