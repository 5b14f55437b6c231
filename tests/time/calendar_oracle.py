"""Prints what Python's zoneinfo and GNU date say about days.

usage: calendar_oracle.py SEED COUNT

One row for each of COUNT random instants in zones of all kinds, and three for each midnight that any zone skips or
repeats from 2000 to 2030: the start of that day, the second before and half an hour after. A row has the zone, the
instant, the offset; the start and end of its day, week, month, quarter and year, of the day before and of the day
after; a number of months, and the date so many months away, as its midnight in UTC, with the start of that day."""
import calendar
import datetime as dt
import functools
import os
import random
import subprocess
import sys

try:
    import zoneinfo
except ImportError:
    sys.exit(77)
if not os.path.exists("/usr/share/zoneinfo/Europe/Berlin"):
    sys.exit(77)

EPOCH, DAY = dt.datetime(1970, 1, 1), dt.timedelta(1)
REACH = 26 * 3600
ZONES = ("Africa/Cairo Africa/Casablanca America/Asuncion America/Havana America/Juneau America/New_York "
         "America/Santiago America/Sao_Paulo America/St_Johns Antarctica/Troll Asia/Beirut Asia/Kathmandu Asia/Manila "
         "Asia/Tehran Atlantic/Azores Australia/Lord_Howe Europe/Berlin Europe/Dublin Pacific/Apia "
         "Pacific/Kwajalein").split()


def seconds(time):
    return int((time - EPOCH).total_seconds())


def local(zone, instant):
    utc = (EPOCH + dt.timedelta(seconds=instant)).replace(tzinfo=zone)
    return zone.fromutc(utc).replace(tzinfo=None)


def offset(zone, instant):
    return seconds(local(zone, instant)) - instant


def crossing(low, high, has_crossed):
    """The first instant that has crossed, between one that has not and one that has."""
    while high - low > 1:
        middle = (low + high) // 2
        low, high = (low, middle) if has_crossed(middle) else (middle, high)
    return high


@functools.lru_cache(None)
def first(zone, date):
    """The first instant whose local date is this one or later."""
    midnight = seconds(dt.datetime.combine(date, dt.time()))
    offsets = {offset(zone, midnight + reach) for reach in (-REACH, 0, REACH)}
    if len(offsets) == 1:
        return midnight - offsets.pop()
    has_begun = lambda t: local(zone, t).date() >= date
    reached = next(t for t in range(midnight - REACH, midnight + REACH + 900, 900) if has_begun(t))
    return crossing(reached - 900, reached, has_begun)


def day_of(zone, instant):
    date = local(zone, instant).date()
    return date + DAY if first(zone, date + DAY) <= instant else date


def away(date, months):
    month = date.year * 12 + date.month - 1 + months
    year, month = month // 12, month % 12 + 1
    return dt.date(year, month, min(date.day, calendar.monthrange(year, month)[1]))


def near_change(zone, instant):
    """An instant within a day of a change of the offset, if one is near."""
    for low in range(instant, instant + 400 * 86400, 20 * 86400):
        high = low + 20 * 86400
        if offset(zone, low) != offset(zone, high):
            return crossing(low, high, lambda t: offset(zone, t) != offset(zone, low)) + random.randint(-86400, 86400)
    return instant


def chosen_instants(zone, count):
    bounds = [seconds(dt.datetime(y, 1, 1)) for y in (4, 1800, 1970, 2100, 9996)]
    for i in range(count):
        if i % 4 < 2:
            yield random.randint(bounds[i % 4], bounds[4 - i % 4])
        else:
            yield near_change(zone, random.randint(bounds[2], bounds[3]))


def odd_midnights(zone, first_year, last_year):
    """The dates whose midnight is skipped or repeated."""
    noon = seconds(dt.datetime(first_year, 1, 1, 12))
    noons = range(noon, seconds(dt.datetime(last_year + 1, 1, 4)), 3 * 86400)
    offsets = [dt.datetime.fromtimestamp(t, zone).utcoffset() for t in noons]
    dates = {(EPOCH + dt.timedelta(seconds=noons[i]) + k * DAY).date()
             for i in range(1, len(offsets)) if offsets[i] != offsets[i - 1] for k in range(-4, 3)}
    for date in sorted(dates):
        midnight = dt.datetime.combine(date, dt.time(), zone)
        if midnight.utcoffset() != midnight.replace(fold=1).utcoffset():
            yield date


def offsets_by_date(name, zone, instants):
    """By GNU date, where it is there."""
    try:
        said = subprocess.run(["date", "-f", "-", "+%Y-%m-%dT%T"], input="".join(f"@{t}\n" for t in instants),
                              text=True, check=True, stdout=subprocess.PIPE,
                              env={**os.environ, "TZ": name, "LC_ALL": "C"})
        locals = [dt.datetime.fromisoformat(text) for text in said.stdout.split()]
    except (OSError, subprocess.CalledProcessError):
        locals = [local(zone, t) for t in instants]
    return [seconds(there) - t for there, t in zip(locals, instants)]


def print_rows(name, zone, instants):
    for t, offset in zip(instants, offsets_by_date(name, zone, instants)):
        day = day_of(zone, t)
        before, after = (day_of(zone, first(zone, date) - side) for date, side in ((day, 1), (day + DAY, 0)))
        week = day - day.weekday() * DAY
        month = day.replace(day=1)
        quarter = month.replace(month=(month.month - 1) // 3 * 3 + 1)
        year = day.replace(month=1, day=1)
        bounds = [day, after, week, week + 7 * DAY, month, away(month, 1), quarter, away(quarter, 3), year,
                  away(year, 12), before, day, after, after + DAY]
        months = random.randint(-30, 30)
        then = away(day, months)
        while first(zone, then) == first(zone, then + DAY):
            then += DAY if months >= 0 else -DAY
        print(name, t, offset, *(first(zone, date) for date in bounds), months,
              seconds(dt.datetime.combine(then, dt.time())), first(zone, then))


random.seed(sys.argv[1])
for name in ZONES:
    zone = zoneinfo.ZoneInfo(name)
    print_rows(name, zone, list(chosen_instants(zone, int(sys.argv[2]) // len(ZONES))))
for name in sorted(zoneinfo.available_timezones()):
    zone = zoneinfo.ZoneInfo(name)
    starts = [first(zone, date) for date in odd_midnights(zone, 2000, 2030)]
    print_rows(name, zone, [t + later for t in starts for later in (-1, 0, 1800)])
