"""Prints what Python's zoneinfo and GNU date say about days.

usage: calendar_oracle.py instants SEED COUNT ZONE... | calendar_oracle.py midnights FIRST_YEAR LAST_YEAR

instants: zone, instant, local time by GNU date ("-" without it), then start and end of its day, week, month, quarter,
year, the day before and the day after, then months away from it, and the date and start of that day.
midnights: zone, the date as its midnight in UTC, start of the day and of the next one, for each midnight that is skipped or repeated."""
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


def local(zone, instant):
    utc = (EPOCH + dt.timedelta(seconds=instant)).replace(tzinfo=zone)
    return zone.fromutc(utc).replace(tzinfo=None)


def crossing(low, high, has_crossed):
    """The first instant that has crossed, between one that has not and one that has."""
    while high - low > 1:
        middle = (low + high) // 2
        low, high = (low, middle) if has_crossed(middle) else (middle, high)
    return high


@functools.lru_cache(None)
def first(zone, date):
    """The first instant whose local date is this one or later."""
    midnight = int((dt.datetime.combine(date, dt.time()) - EPOCH).total_seconds())
    offsets = {local(zone, midnight + s * REACH) - EPOCH - dt.timedelta(seconds=midnight + s * REACH) for s in (-1, 0, 1)}
    if len(offsets) == 1:
        return midnight - int(offsets.pop().total_seconds())
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
    offset = lambda t: local(zone, t) - EPOCH - dt.timedelta(seconds=t)
    for low in range(instant, instant + 400 * 86400, 20 * 86400):
        high = low + 20 * 86400
        if offset(low) != offset(high):
            return crossing(low, high, lambda t: offset(t) != offset(low)) + random.randint(-86400, 86400)
    return instant


def instants(seed, count, *names):
    random.seed(seed)
    bounds = [int((dt.datetime(y, 1, 1) - EPOCH).total_seconds()) for y in (2, 1800, 1970, 2100, 9998)]
    for name in names:
        zone = zoneinfo.ZoneInfo(name)
        chosen = []
        for i in range(int(count) // len(names)):
            if i % 4 == 0:
                chosen.append(random.randint(bounds[0], bounds[4]))
            elif i % 4 == 1:
                chosen.append(random.randint(bounds[1], bounds[3]))
            else:
                chosen.append(near_change(zone, random.randint(bounds[2], bounds[3])))
        try:
            shown = subprocess.run(["date", "-f", "-", "+%Y-%m-%dT%T"], text=True, check=True,
                                   input="".join(f"@{t}\n" for t in chosen), stdout=subprocess.PIPE,
                                   env={**os.environ, "TZ": name, "LC_ALL": "C"}).stdout.split()
        except (OSError, subprocess.CalledProcessError):
            shown = ["-"] * len(chosen)
        for t, text in zip(chosen, shown):
            day = day_of(zone, t)
            month = day.replace(day=1)
            quarter = month.replace(month=(month.month - 1) // 3 * 3 + 1)
            year = day.replace(month=1, day=1)
            week = day - day.weekday() * DAY
            before = day_of(zone, first(zone, day) - 1)
            starts = [day, day + DAY, week, week + 7 * DAY, month, away(month, 1), quarter, away(quarter, 3), year,
                      away(year, 12), before, day, day + DAY, day + DAY]
            starts = [first(zone, date) for date in starts]
            starts[13] = first(zone, day_of(zone, starts[12]) + DAY)
            months = random.randint(-11, 11)
            then = away(day, months)
            while first(zone, then) == first(zone, then + DAY):
                then += DAY if months >= 0 else -DAY
            print(name, t, text, *starts, months, then, first(zone, then))


def midnights(first_year, last_year):
    for name in sorted(zoneinfo.available_timezones()):
        zone = zoneinfo.ZoneInfo(name)
        noons = range(int((dt.datetime(int(first_year), 1, 1, 12) - EPOCH).total_seconds()),
                      int((dt.datetime(int(last_year) + 1, 1, 4, 12) - EPOCH).total_seconds()), 3 * 86400)
        offsets = [dt.datetime.fromtimestamp(t, zone).utcoffset() for t in noons]
        dates = {(EPOCH + dt.timedelta(seconds=noons[i]) + k * DAY).date()
                 for i in range(1, len(offsets)) if offsets[i] != offsets[i - 1] for k in range(-4, 3)}
        for date in sorted(dates):
            midnight = dt.datetime.combine(date, dt.time(), zone)
            if midnight.utcoffset() != midnight.replace(fold=1).utcoffset():
                start = int((dt.datetime.combine(date, dt.time()) - EPOCH).total_seconds())
                print(name, start, first(zone, date), first(zone, date + DAY))


{"instants": instants, "midnights": midnights}[sys.argv[1]](*sys.argv[2:])
