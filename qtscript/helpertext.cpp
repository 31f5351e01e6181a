#include "qtscript/helpertext.h"

namespace {

/// - scopeOf: the object through which the free names of a script are looked up that runs into an object of its own. It
///   has the object's own properties, and every name that the engine's global object lacks, so that what is assigned
///   without a declaration lands in the object. The error of an unknown name tells the place that asked for it, which
///   is the second line of its stack.
/// - definitionOn: makes a variable of a script a property of the object.
/// - functionOf: a function that runs C++.
/// - textOfSymbol: the text of a symbol, which C++ has no other form for.
constexpr char16_t helpers[] = uR"((function(global, invoker, guard) {
    const apply = Reflect.apply, define = Object.defineProperty;
    const has = Object.prototype.hasOwnProperty, invoke = invoker.invoke, read = invoker.read, NativeProxy = Proxy;
    const textOf = String;
    const owns = (object, name) => apply(has, object, [name]);
    guard(global, invoker);
    return {
        scopeOf: object => new NativeProxy(object, {
            has: (o, name) => typeof name !== 'symbol' && (owns(o, name) || !(name in global)),
            get: (o, name) => {
                if (typeof name === 'symbol') return undefined;
                if (name in o) return o[name];
                throw new ReferenceError(name + ' is not defined');
            },
            set: (o, name, value) => { o[name] = value; return true },
        }),
        definitionOn: object => (name, get, set) =>
            define(object, name, {get, set, enumerable: true, configurable: true}),
        defineProperty: (object, name, value, writable, enumerable, configurable) =>
            define(object, name, {value, writable, enumerable, configurable}),
        ownNames: object => Object.getOwnPropertyNames(object),
        defineAccessor: (object, name, getter, set) =>
            define(object, name, {get() { return read(getter, this) }, set, enumerable: true, configurable: true}),
        textOfSymbol: symbol => textOf(symbol),
        functionOf: f => function() { return invoke(f, this, arguments) },
    };
}))";

/// Replaces functions and classes with which a script can end the process in Qt 6.4:
///
/// - Arrays: some functions go down into arrays natively, without counting the levels, to the end of the stack for one
///   that holds itself. `concat` goes on in an array that a getter of it has changed, and gets copies here;
///   `copyWithin` takes room on the stack of values for each item.
/// - RegExp, and the functions of texts that make one: patterns that are too deep (`patterns`) are refused, and texts
///   for Function and `eval` (`evalcalls`) with a literal of one. Only `eval` as a property of the global object isn't
///   seen: a function in its place would not run in the caller's scope.
/// - Proxy: a chain of them is gone through natively. Here each has a function of the language for every operation, and
///   so counts as a call.
/// - Generators: one that goes on with another resumes it natively; likewise. So do iterators: a call that spreads one
///   puts its items on the stack of values, and only a call looks for the end of that.
/// - WeakMap and WeakSet: Qt's forget to let go of a key that is collected, and compare keys one by one. Here the value
///   is in the key, under a symbol; keys that take none, and proxies, are kept in a Map.
constexpr char16_t guards[] = uR"(((global, invoker) => {
    const apply = Reflect.apply, construct = Reflect.construct, define = Object.defineProperty, isArray = Array.isArray;
    const has = Object.prototype.hasOwnProperty, isExtensible = Object.isExtensible, TextOf = String, TypeOf = TypeError;
    const ObjectOf = Object, max = Math.max, min = Math.min, truncate = Math.trunc;
    const MAX_SAFE_INTEGER = Number.MAX_SAFE_INTEGER;
    const NativeMap = Map, NativeProxy = Proxy, NativeRegExp = RegExp, NativeFunction = Function;
    const replace = (object, name, value) => define(object, name, {value, writable: true, configurable: true});
    const isObject = value => value !== null && (typeof value === 'object' || typeof value === 'function');
    const replaceClass = (name, made, native) => {
        define(made, 'prototype', {value: native.prototype, writable: false});
        replace(native.prototype, 'constructor', made);
        Object.setPrototypeOf(made, native);
        replace(global, name, made);
    };

    const joined = []; // The arrays whose text is being made: inside itself an array has none.
    for (const name of ['join', 'toLocaleString']) {
        const native = Array.prototype[name];
        replace(Array.prototype, name, {[name](separator) {
            for (let i = 0; i < joined.length; ++i) if (joined[i] === this) return '';
            joined[joined.length] = this;
            try { return apply(native, this, arguments) } finally { joined.length = joined.length - 1 }
        }}[name]);
    }
    const textOfObject = Object.prototype.toString;
    replace(Array.prototype, 'toString', {toString() {
        return typeof this.join === 'function' ? this.join() : apply(textOfObject, this, []);
    }}.toString);
    const flatten = (result, array, depth) => {
        for (let i = 0; i < array.length; ++i) {
            if (!(i in array)) continue;
            if (depth > 0 && isArray(array[i])) flatten(result, array[i], depth - 1);
            else result[result.length] = array[i];
        }
        return result;
    };
    replace(Array.prototype, 'flat', {flat(depth = 1) {
        if (this === null || this === undefined) throw new TypeOf('flat of ' + this);
        return flatten([], this, +depth || 0);
    }}.flat);

    const concat = Array.prototype.concat, slice = Array.prototype.slice;
    const copyOf = value => {
        if (!isArray(value)) return value;
        const length = value.length, copy = apply(slice, value, []);
        copy.length = length;
        return copy;
    };
    replace(Array.prototype, 'concat', {concat() {
        const first = copyOf(this), others = [];
        for (let i = 0; i < arguments.length; ++i) others[i] = copyOf(arguments[i]);
        return apply(concat, first, others);
    }}.concat);
    replace(Array.prototype, 'copyWithin', {copyWithin(target, start, end) {
        if (this === null || this === undefined) throw new TypeOf('copyWithin of ' + this);
        const object = ObjectOf(this), length = min(max(truncate(object.length) || 0, 0), MAX_SAFE_INTEGER);
        const place = (value, otherwise) => {
            const at = value === undefined ? otherwise : truncate(value) || 0;
            return at < 0 ? max(length + at, 0) : min(at, length);
        };
        let to = place(target, 0), from = place(start, 0), count = min(place(end, length) - from, length - to), step = 1;
        if (from < to && to < from + count) {
            step = -1;
            from += count - 1;
            to += count - 1;
        }
        for (; count > 0; --count, from += step, to += step) {
            if (from in object) object[to] = object[from];
            else delete object[to];
        }
        return object;
    }}.copyWithin);

    const patternOf = value => {
        if (value === undefined || value instanceof NativeRegExp) return value;
        const pattern = TextOf(value);
        if (invoker.isTooDeep(pattern)) throw new RangeError(invoker.tooDeep());
        return pattern;
    };
    const CheckedRegExp = function RegExp(pattern, flags) {
        if (new.target === undefined && flags === undefined && pattern instanceof NativeRegExp) return pattern;
        const given = flags === undefined ? [patternOf(pattern)] : [patternOf(pattern), flags];
        const isPlain = new.target === undefined || new.target === CheckedRegExp;
        return isPlain ? new NativeRegExp(...given) : construct(NativeRegExp, given, new.target);
    };
    replaceClass('RegExp', CheckedRegExp, NativeRegExp);
    for (const name of ['match', 'matchAll', 'search']) {
        const native = TextOf.prototype[name];
        if (native) replace(TextOf.prototype, name, {[name](value) {
            const isPattern = value === undefined || value === null || (isObject(value) && value[Symbol.match]);
            return apply(native, this, [isPattern ? value : new CheckedRegExp(value, name === 'matchAll' ? 'g' : '')]);
        }}[name]);
    }
    const checkedText = text => {
        if (typeof text !== 'string') return text;
        if (invoker.hasTooDeepLiteral(text)) throw new RangeError(invoker.tooDeep());
        return invoker.withCheckedEval(text);
    };
    const runGlobally = global.eval;
    define(global, '$checkedText', {value: checkedText});
    define(global, '$checkedEval', {value: {eval(text) { return runGlobally(checkedText(text)) }}.eval});
    for (const kind of [function() {}, function*() {}]) {
        const native = kind.constructor;
        const checked = function Function() {
            const texts = [];
            for (let i = 0; i < arguments.length; ++i) texts[i] = checkedText(TextOf(arguments[i]));
            return apply(native, this, texts);
        };
        define(checked, 'prototype', {value: native.prototype, writable: false});
        define(native.prototype, 'constructor', {value: checked, writable: native === NativeFunction, configurable: true});
        if (native === NativeFunction) replace(global, 'Function', checked);
    }

    const isProxy = Symbol('proxy');
    const Traps = function(handler) { this.handler = handler };
    for (const name of ['get', 'set', 'has', 'deleteProperty', 'defineProperty', 'getOwnPropertyDescriptor', 'ownKeys',
                        'getPrototypeOf', 'setPrototypeOf', 'isExtensible', 'preventExtensions', 'apply', 'construct']) {
        const otherwise = Reflect[name];
        Traps.prototype[name] = function(target, key) {
            if (key === isProxy && name === 'get') return true;
            const trap = this.handler[name];
            return trap === undefined || trap === null ? apply(otherwise, undefined, arguments)
                                                       : apply(trap, this.handler, arguments);
        };
    }
    const trapsOf = handler => {
        if (!isObject(handler)) throw new TypeOf('Cannot create proxy with a non-object as target or handler');
        return new Traps(handler);
    };
    const CountedProxy = function Proxy(target, handler) {
        if (new.target === undefined) throw new TypeOf('Proxy is called with new only');
        return new NativeProxy(target, trapsOf(handler));
    };
    delete CountedProxy.prototype;
    const revocable = NativeProxy.revocable;
    replace(CountedProxy, 'revocable', (target, handler) => apply(revocable, NativeProxy, [target, trapsOf(handler)]));
    replace(global, 'Proxy', CountedProxy);

    const iterators = [[], '', new Map, new Set].map(each => Object.getPrototypeOf(each[Symbol.iterator]()));
    for (const iterator of [Object.getPrototypeOf(function*() {}).prototype, ...iterators]) {
        for (const name of ['next', 'return', 'throw']) {
            const native = iterator[name];
            if (native) replace(iterator, name, {[name](value) { return apply(native, this, arguments) }}[name]);
        }
    }

    const slot = Symbol('slot'), rest = Symbol('rest');
    const weakClass = (name, add, methods) => {
        const made = {[name]: function(entries) {
            if (new.target === undefined) throw new TypeOf(name + ' is called with new only');
            define(this, slot, {value: Symbol(name)});
            define(this, rest, {value: new NativeMap});
            if (entries !== undefined && entries !== null) for (const entry of entries) add(this, entry);
        }}[name];
        for (const method in methods) replace(made.prototype, method, methods[method]);
        define(made.prototype, Symbol.toStringTag, {value: name, configurable: true});
        replace(global, name, made);
    };
    const boxIn = (table, key) => {
        if (!isObject(table) || !table[slot]) throw new TypeOf('The object is no weak table');
        if (!isObject(key)) return undefined;
        const box = apply(has, key, [table[slot]]) && key[isProxy] !== true ? key[table[slot]] : table[rest].get(key);
        return box && box.isKept ? box : undefined;
    };
    const keep = (table, key, value) => {
        const box = boxIn(table, key);
        if (!isObject(key)) throw new TypeOf('A key of a weak table is an object');
        if (box) box.value = value;
        else if (key[isProxy] !== true && apply(has, key, [table[slot]]))
            Object.assign(key[table[slot]], {value, isKept: true});
        else if (key[isProxy] !== true && isExtensible(key)) define(key, table[slot], {value: {value, isKept: true}});
        else table[rest].set(key, {value, isKept: true});
        return table;
    };
    const drop = (table, key) => {
        const box = boxIn(table, key);
        if (box) { box.isKept = false; box.value = undefined; table[rest].delete(key) }
        return box !== undefined;
    };
    const common = {has(key) { return boxIn(this, key) !== undefined }, delete(key) { return drop(this, key) }};
    weakClass('WeakMap', (table, entry) => keep(table, entry[0], entry[1]), Object.assign({
        get(key) { const box = boxIn(this, key); return box && box.value },
        set(key, value) { return keep(this, key, value) }}, common));
    weakClass('WeakSet', (table, entry) => keep(table, entry), Object.assign({
        add(key) { return keep(this, key) }}, common));
}))";

} // namespace

QString helperText()
{
    return QStringLiteral("(function(global, invoker) { return %1(global, invoker, %2) })")
        .arg(QString::fromUtf16(helpers), QString::fromUtf16(guards));
}

QString helperFile()
{
    return QStringLiteral("qtscript-helpers");
}
