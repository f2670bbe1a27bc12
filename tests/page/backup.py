"""A phone's backup that never was: a hundred contacts, a year of appointments, a thousand messages, a hundred mails, as
JSON documents of the command. Always the same, for a given number of messages. Texts that try to become more than text
stand among them, on demand."""

import datetime
import json
import pathlib
import random

GIVEN = ["Anna", "Jürgen", "Sofía", "Émile", "Ingrid", "Tomás", "Zoë", "Lukas", "Mira", "Pavel", "Hannah", "Oskar", "Clara",
         "Nils", "Marta", "Jonas", "Beatriz", "Felix", "Ida", "Karim", "Leila", "Viktor", "Rosa", "Samuel", "Thea"]
FAMILY = ["Müller", "Berger", "Castillo", "Dupont", "Lindqvist", "Novák", "Okafor", "Petersen", "Rossi", "Schneider",
          "Tanaka", "Vogel", "Weiss", "Yılmaz", "Åberg", "Fischer", "García", "Hoffmann", "Jansen", "Keller"]
WORLD = ["Ελένη Παπαδοπούλου", "Σοφία Νικολάου", "山田太郎", "王小明", "김민수", "Анна Иванова", "Дмитрий Соколов",
         "שרה כהן", "أحمد حسن", "प्रिया शर्मा"]
WORK = [("Einkauf", "Müller & Söhne GmbH"), ("Architect", "Studio Nord"), ("Teacher", "Waldschule"), ("Dentist", ""),
        ("", "Café Zentral"), ("Bookkeeper", "Hafen Logistik AG"), ("", "Taxi 24"), ("Piano lessons", "")]
STREETS = ["Lindenstraße 12", "Hauptstraße 4a", "Am Hafen 7", "Rosenweg 31", "Via Roma 5", "12 Rue des Lilas"]
CITIES = [("10969", "Berlin"), ("20457", "Hamburg"), ("50667", "Köln"), ("1010", "Wien"), ("8001", "Zürich")]

TALK = [
    ("i", "Train is late, start without me"), ("o", "No hurry. We keep a seat for you."), ("i", "You are the best 😊"),
    ("o", "Did you find the keys?"), ("i", "Yes! They were in the blue coat all along."),
    ("o", "Can you bring bread on the way home?"), ("i", "Sure. The dark one?"), ("o", "Yes please, and a lemon"),
    ("i", "Happy birthday!! 🎂 All the best from the whole family, we are thinking of you and raise a glass tonight."),
    ("o", "Thank you so much ❤️"), ("i", "Are we still on for Saturday?"), ("o", "Of course. Ten o'clock at the lake."),
    ("i", "I'll take the camera."), ("i", "And the small one wants to swim"), ("o", "It's 14 degrees :-)"),
    ("i", "She doesn't mind, you know her"), ("o", "Call me when you have a minute?"), ("i", "In the meeting until four"),
    ("o", "Fine, later then."), ("i", "Landed. All well, the luggage too for once."), ("o", "Welcome back!"),
    ("i", "The doctor says it's nothing. Just rest."), ("o", "Thank goodness. I bring soup."),
    ("i", "Rehearsal moved to 19:30, room 4"), ("o", "Got it"),
]
GREEK = [("i", "Καλημέρα! Τα λέμε στις 5;"), ("o", "Ναι, στο καφέ δίπλα στη θάλασσα"), ("i", "Τέλεια 🌊")]
HEBREW = [("i", "שלום! מה שלומך? נתראה מחר בשעה 10:30?"), ("o", "כן, בשמחה. ליד Café Zentral."), ("i", "מצוין!")]
JAPANESE = [("i", "明日、三時に駅で会いましょう。"), ("o", "はい、楽しみにしています！"), ("i", "傘を忘れないでね ☔")]

EVENTS = [("Dentist", "Dr. Weiss, Hauptstraße 4a", 1), ("Breakfast with Ελένη", "Café Zentral", 6),
          ("School concert", "Aula", 3), ("Call with the tax office", "", 7), ("Piano lesson", "Studio 2", 3),
          ("Dinner at the Petersens", "Am Hafen 7", 6), ("Project review", "Room 4", 5), ("Car inspection", "Garage Keller", 2),
          ("Cinema", "Lichtspielhaus", 6), ("Flight to Athens", "Terminal 1", 9), ("Parents' evening", "Waldschule", 3)]
SUBJECTS = ["Photos of Saturday", "Re: Photos of Saturday", "Invoice 2008-117", "Your booking is confirmed", "Recipe for the plum cake",
            "Minutes of the meeting", "Garden plans", "Tickets for the concert", "Re: Summer house", "Greetings from Athens"]
BODY = ["Here they are.\r\n\r\nThe second one is my favourite: look at the light on the water behind us. I have put the large "
        "files on a disc for you.\r\n\r\nGrüße,\r\nSofía",
        "Dear all,\r\n\r\nplease find the minutes below.\r\n\r\n1. The roof is done, the bill is lower than we feared.\r\n2. "
        "The garden waits for spring.\r\n3. Next meeting on the first Monday of the month.\r\n\r\nKind regards\r\nIngrid",
        "Thank you! Can I show them to 山田さん?\r\n\r\nSee you on Sunday",
        "500 g plums, 250 g flour, 125 g butter, two eggs, a pinch of salt and a little cinnamon.\r\n\r\nForty minutes, not "
        "more. Whipped cream is not optional."]

HOSTILE = [
    "<script>document.title='owned'</script>",
    "</script><script>document.title='owned'</script>",
    "<img src=x onerror=\"document.title='owned'\">",
    "\"><svg onload=document.title='owned'>",
    "' onmouseover='document.title=1' x='",
    "</style><style>body{display:none}</style>",
    "<!-- --><b>bold</b>", "--><script>document.title='owned'</script>", "<![CDATA[<script>document.title=1</script>]]>",
    "</textarea></title></p></article></main><h1>out</h1>",
    "javascript:document.title='owned'", "JaVaScRiPt:alert(1)", "data:text/html,<script>alert(1)</script>",
    "http://example.com/\" onclick=\"document.title='owned'", "http://user@example.com@evil.example/", "vbscript:x",
    "tel:*#06#", "*#06#", "a@b.example?bcc=c@d.example", "&lt;script&gt;&#60;script&#62;", "{{title}}{{{style}}}",
    "\u0000\u0001\u001b[31m\u007f\u0085", "\u202egnp.exe", "\ufeff\ufffe\uffff", "a\u2028b\u2029c",
    "<a href=javascript:document.title='owned'>x</a>", "<base href=//evil.example>", "<meta http-equiv=refresh content=0>",
    "<iframe srcdoc='<script>parent.document.title=1</script>'>", "`${document.title='owned'}`", "\r\n\r\n<b>\r</b>",
]


def moment(value):
    return value.strftime("%Y-%m-%dT%H:%M:%S")


def texts(*pairs):
    """Fields of a record: those of a type and a text."""
    return [{"type": kind, "data": text} for kind, text in pairs if text]


def make_contacts(rng):
    records = []
    for i in range(100):
        if i % 10 == 9:
            fields = texts((5, WORLD[i // 10 % len(WORLD)]))
        else:
            given, family = rng.choice(GIVEN), rng.choice(FAMILY)
            fields = texts((2, family), (1, given))
        if i % 4 == 0:
            fields[0]["groups"] = [{"id": 1 + i % 3, "name": ["Family", "Work", "Choir"][i % 3]}]
        fields += texts((104, "+49171%07d" % (3920000 + i * 37)), (102, i % 3 == 0 and "+49 30 %d" % (23125000 + i)),
                        (1000, i % 2 == 0 and "contact%d@example.com" % i),
                        (1500, i % 7 == 0 and "http://www.example.com/%d" % i))
        if i % 3 == 1:
            fields += texts(*zip((4035, 4032), WORK[i % len(WORK)]))
        if i % 5 == 0:
            code, city = CITIES[i // 5 % len(CITIES)]
            street = STREETS[i // 5 % len(STREETS)]
            fields += texts((2000, ";;%s;%s;;%s;" % (street, city, code)), (2002, street), (2004, city), (2006, code))
        fields += texts((4003, i % 6 == 0 and "19%02d%02d%02d" % (50 + i % 45, 1 + i % 12, 1 + i % 28)),
                        (3002, i % 9 == 0 and "Brings the cake.\r\nAllergic to nuts!"))
        records.append({"storage": i % 2, "fields": fields})
    return records


def make_calendar(rng):
    def entry(title, start, hours=1.0, body="", place="", url="", phone="", **more):
        record = {"itemType": 0, "fields": texts((3000, title), (3002, body), (3003, place), (3004, url), (3012, phone)), **more}
        if start:
            record["dtstart"] = moment(start)
            if hours is not None:
                record["dtend"] = moment(start + datetime.timedelta(hours=hours))
        return record

    day = datetime.datetime
    records = [
        entry("Team meeting", day(2008, 1, 7, 10), recurtype=2, recurweekmask=2, recurinterval=1, recurhasenddate=1,
              recurenddate="2008-12-29T00:00:00", remindermin=10, category=5,
              body="Bring the figures of last week.\r\nThe room is booked until noon."),
        entry("Choir", day(2008, 1, 10, 19, 30), 2, recurtype=2, recurweekmask=16, recurinterval=1, category=6,
              place="St. Johannis", recurhasenddate=1, recurenddate="2008-12-18T00:00:00"),
        entry("Medicine", day(2008, 3, 18, 7), 0, recurtype=2, recurweekmask=62, recurinterval=0, recurrepeat=20, secret=1,
              remindermin=5),
        entry("Rent", day(2008, 1, 1), None, recurtype=3, recurday=1, recurinterval=1, category=13),
        entry("Book club", day(2008, 1, 15, 20), 2, recurtype=3, recurweekmask=4, recurinstance=1, recurinterval=1,
              category=6, place="Anna's"),
        entry("Summer holidays at the sea", day(2008, 7, 19), 24 * 14, category=10, place="Ærø",
              url="http://www.example.com/aeroe", phone="+4562521300"),
        entry("A box of old photos", None, category=11),
    ]
    for i, name in enumerate(["山田さんの誕生日", "Anna's birthday", "Émile's birthday", "Mama's birthday"]):
        records.append(entry(name, day(1948 + 9 * i, 2 + 2 * i, 23), None, recurtype=4, recurday=23, recurmonth=2 + 2 * i,
                             recurinterval=1, category=14))
    for i in range(110):
        title, place, category = rng.choice(EVENTS)
        start = day(2008, 1, 2, rng.choice([8, 9, 11, 14, 16, 18, 20]), rng.choice([0, 15, 30]))
        records.append(entry(title, start + datetime.timedelta(days=i * 365 // 110), rng.choice([1, 1.5, 2]), place=place,
                             category=category, remindermin=rng.choice([0, 0, 30])))
    for title, done, due, priority in (
            ("Pay the rent", 0, day(2008, 3, 31, 12), 2), ("Return library books", 1, None, 1),
            ("Renew the passport", 0, day(2008, 6, 2), 1), ("Repair the bicycle", 1, day(2008, 4, 12), 0),
            ("Write to aunt Rosa", 0, None, 1), ("Order firewood", 1, day(2008, 9, 1), 1)):
        records.append({**entry(title, due, None, priority=priority, complete=done), "itemType": 1})
    return records


def make_messages(rng, contacts, count):
    parties = []
    for i in range(24):
        record = contacts[(i * 4 + 9 * (i % 3)) % len(contacts)]
        names = {field["type"]: field["data"] for field in record["fields"]}
        parties.append((names[104], names.get(5) or names[1] + " " + names[2],
                        {0: GREEK, 1: HEBREW, 2: JAPANESE}.get(i - 20, TALK)))
    parties[3] = ("Bank", "", [("i", "Your balance is 4.20. Questions? Call 12345.")])
    parties[5] = (parties[5][0], "", TALK)  # named by the contacts alone
    weights = [40, 30, 20, 4, 12, 9] + [3] * (len(parties) - 6)
    now = datetime.datetime(2008, 1, 3, 8, 30)
    step = datetime.timedelta(days=350) / count
    places = [rng.randrange(20) for _ in parties]
    records = []
    while len(records) < count:
        which = rng.choices(range(len(parties)), weights)[0]
        number, name, talk = parties[which]
        time = now
        for _ in range(min(rng.randint(1, 7), count - len(records))):
            side, text = talk[places[which] % len(talk)]
            places[which] += 1
            time += datetime.timedelta(minutes=rng.randint(0, 9), seconds=rng.randint(0, 59))
            records.append({"storageid": 1 if rng.random() < .93 else 2, "status": 1, "listtype": 1 if side == "i" else 4,
                            "phonenumber": number, "name": name, "content": text, "time": time.strftime("%Y-%m-%d %H:%M:%S")})
            now += step
    for text, box, number in (("I'll be there at eight, save me a", 3, parties[0][0]), ("Sorry, can't talk now.", 8, ""),
                              ("Call you back in an hour.", 5, "")):
        records[-1 - box] = {"storageid": 1, "status": 0, "listtype": box, "phonenumber": number, "name": "", "content": text,
                             "time": "2008-12-20 22:41:05" if number else ""}
    return records


def make_mails(rng):
    records = []
    for i in range(100):
        when = datetime.datetime(2008, 1, 4, 7, 2) + datetime.timedelta(days=3.6 * i, minutes=rng.randint(0, 700))
        who = rng.choice(GIVEN) + " " + rng.choice(FAMILY)
        address = "%s <person%d@example.net>" % (who, i)
        own = "Jürgen Müller <juergen.mueller@example.com>"
        sent = i % 5 == 2
        draft = i in (50, 77)
        record = {"type": 4 if draft else 3 if sent else 1, "box": "Drafts" if draft else "Sent" if sent else "Inbox", "device": 1,
                  "status": 2 if i > 92 and not sent else 1, "account": "<id>1</id><name>Home</name>",
                  "from": own if sent or draft else address, "to": "" if draft else address if sent else own,
                  "subject": SUBJECTS[i % len(SUBJECTS)], "body": BODY[i % len(BODY)], "sent": moment(when),
                  "importance": 3 if i % 17 == 3 else 2, "entryid": str(4711 + i)}
        if not sent and not draft:
            record["received"] = moment(when + datetime.timedelta(seconds=32))
        if i % 10 == 0:
            record["accessory"] = ["lake.jpg", "picnic.jpg"]
        if i % 23 == 5:
            record["cc"] = "anna@example.org"
        records.append(record)
    return records


def add_hostile(kinds):
    for text in HOSTILE:
        kinds["contacts"].append({"fields": [
            {"type": kind, "data": text, "extraNumber": 1, "extraText": text, "groups": [{"id": 1, "name": text}]}
            for kind in (5, 104, 1000, 1500, 2000, 4003, 4032, 4035, 3002, 4711)]})
        kinds["calendar"].append({"itemType": 0, "dtstart": "2008-02-29T10:00:00", "ring": text, "recurtype": 1, "recurrepeat": 2,
                                  "fields": texts(*((kind, text) for kind in (3000, 3002, 3003, 3004, 3012, 4711)))})
        kinds["sms"].append({"listtype": 1, "phonenumber": text, "name": text, "content": text, "time": text})
        kinds["email"].append({"type": 1, "accessory": [text], **dict.fromkeys(
            ("box", "account", "folder", "from", "to", "cc", "bcc", "subject", "body", "entryid"), text)})


def write(folder, messages=1000, hostile=False):
    """Writes the documents and gives their paths."""
    rng = random.Random(2008)
    contacts = make_contacts(rng)
    kinds = {"contacts": contacts, "calendar": make_calendar(rng), "sms": make_messages(rng, contacts, messages),
             "email": make_mails(rng)}
    if hostile:
        add_hostile(kinds)
    for kind, records in kinds.items():
        pathlib.Path(folder, kind + ".json").write_text(json.dumps({"orvale": 1, "kind": kind, "records": records}))
    return [str(pathlib.Path(folder, kind + ".json")) for kind in kinds]
