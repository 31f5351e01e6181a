// A studio's rules for the names of nodes, as its tools share them. `check(scene, rules)` gives a list of
// {path, problem}; `rules` is {prefixes: {TYPE: text}, longest: number, except: [path]}.

var defaults = { prefixes: {}, longest: 32, except: [] };

function problemsOf(node, rules) {
    var problems = [];
    var prefix = rules.prefixes[node.type];
    if (prefix && node.name.indexOf(prefix) !== 0)
        problems.push("should begin with " + prefix);
    if (node.name.length > rules.longest)
        problems.push("is longer than " + rules.longest + " letters");
    if (!/^[A-Za-z][A-Za-z0-9_-]*$/.test(node.name))
        problems.push("has other characters than letters, digits, _ and -");
    return problems;
}

function check(scene, given) {
    var rules = Object.assign({}, defaults, given);
    var found = [];
    for (var node of scene.nodes) {
        if (rules.except.indexOf(node.path) >= 0)
            continue;
        problemsOf(node, rules).forEach(function(problem) {
            found.push({ path: node.path, problem: problem });
        });
    }
    return found;
}
